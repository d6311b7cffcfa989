# What `cmake --install` puts in place: the module, the program and its host library, the headers, the schemas, and the
# files by which CMake and pkg-config find them.
