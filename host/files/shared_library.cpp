#include "host/files/shared_library.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

#include "host/base/error.h"
#include "host/files/file_descriptor.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

constexpr uint64_t kTooFar = std::numeric_limits<uint64_t>::max();

// Where something ends.
uint64_t end_of(uint64_t offset, uint64_t size) {
  return size > kTooFar - offset ? kTooFar : offset + size;
}

class Library {
 public:
  explicit Library(int descriptor) : descriptor_(descriptor) {}

  // How many bytes the file must have; nothing when it is not of the form that is known here.
  [[nodiscard]] std::optional<uint64_t> needed_size(uint64_t size) const {
    constexpr auto kOrder = std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;
    const auto header = read<Elf64_Ehdr>(0);
    if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0 || header->e_ident[EI_CLASS] != ELFCLASS64 ||
        header->e_ident[EI_DATA] != kOrder) {
      return std::nullopt;
    }
    uint64_t needed =
        std::max(end_of(header->e_phoff, uint64_t{header->e_phnum} * header->e_phentsize),
                 header->e_shoff == 0 ? 0 : end_of(header->e_shoff, uint64_t{header->e_shnum} * header->e_shentsize));
    if (needed > size) {
      return needed;
    }
    for (uint64_t index = 0; index < header->e_phnum; ++index) {
      if (const auto segment = read<Elf64_Phdr>(header->e_phoff + index * header->e_phentsize)) {
        needed = std::max(needed, end_of(segment->p_offset, segment->p_filesz));
      }
    }
    for (uint64_t index = 0; header->e_shoff != 0 && index < header->e_shnum; ++index) {
      const auto section = read<Elf64_Shdr>(header->e_shoff + index * header->e_shentsize);
      if (section && section->sh_type != SHT_NOBITS && section->sh_type != SHT_NULL) {
        needed = std::max(needed, end_of(section->sh_offset, section->sh_size));
      }
    }
    return needed;
  }

 private:
  // Nothing when there is less.
  template <typename Part>
  [[nodiscard]] std::optional<Part> read(uint64_t offset) const {
    Part part;
    const ssize_t count =
        retry_interrupted([&] { return pread(descriptor_, &part, sizeof(part), static_cast<off_t>(offset)); });
    return count == ssize_t{sizeof(part)} ? std::optional(part) : std::nullopt;
  }

  int descriptor_;
};

}  // namespace

void check_shared_library_is_whole(const std::string& file) {
  const FileDescriptor descriptor(retry_interrupted([&] { return open(file.c_str(), O_RDONLY | O_CLOEXEC); }));
  struct stat status {};
  if (!descriptor.is_open() || fstat(descriptor.number(), &status) != 0) {
    return;  // dlopen() says so
  }
  const auto size = static_cast<uint64_t>(status.st_size);
  const std::optional<uint64_t> needed = Library(descriptor.number()).needed_size(size);
  if (needed && *needed > size) {
    throw file_error(ErrorKind::kOperationFailed, file,
                     "is not a whole shared library: it has " + std::to_string(size) +
                         " bytes, and its tables say that there are " + std::to_string(*needed));
  }
}

}  // namespace oclacp::host
