// Shared libraries before they are loaded.
#pragma once

#include <string>

namespace oclacp::host {

// Throws Error when a shared library lacks a part of what its tables (elf(5)) place in it, as one that is still being
// copied does: dlopen() maps the file as it is told, and whoever touches a page after its end dies of SIGBUS. What is
// not a 64-bit ELF file of this machine's byte order is left to dlopen() to refuse.
void check_shared_library_is_whole(const std::string& file);

}  // namespace oclacp::host
