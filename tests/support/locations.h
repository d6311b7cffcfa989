// Where the sources and the built programs and libraries are that tests read, load and run. One source file alone is
// compiled with these paths, so that a compiler cache serves every other test from any checkout.
#pragma once

namespace location {

// Folders of the source tree, without a slash at the end.
extern const char* const kSources;
extern const char* const kSchemas;
extern const char* const kExamples;

// Files of the build tree. A test's target depends on those that it uses.
extern const char* const kModule;
extern const char* const kClockModule;
extern const char* const kHostLibrary;
extern const char* const kProgram;
extern const char* const kSystemIdProgram;

}  // namespace location
