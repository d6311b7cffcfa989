// Being told when files change.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/files/file_descriptor.h"
#include "host/files/file_version.h"

namespace oclacp::host {

// Watches some files, by inotify(7) on the folders that they are in: they may be written in place, replaced by rename,
// removed and made again, and be links that are turned to other files. A folder that goes is watched again, when it is
// back, from the next call of take_changes() on.
class FileWatch {
 public:
  // Throws Error when the system has no more watches to give.
  explicit FileWatch(std::vector<std::string> files);

  // Readable when something happened in one of the folders.
  [[nodiscard]] int descriptor() const { return events_.number(); }

  // Takes what happened. Whether a watched file may be another than at the last call. Throws Error.
  bool take_changes();

 private:
  void watch_folders();
  bool take_events();
  [[nodiscard]] bool is_watched(int watch, const char* name) const;

  std::vector<std::string> files_;
  std::vector<std::optional<FileVersion>> versions_;  // beside files_
  FileDescriptor events_;
  std::map<int, std::vector<std::string>> names_;  // by the folder's watch: the names of the watched files
};

}  // namespace oclacp::host
