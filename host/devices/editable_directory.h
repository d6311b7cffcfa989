// A device directory that may be edited.
#pragma once

#include <string>

#include "host/devices/directory_device.h"
#include "host/files/directory_lock.h"

namespace oclacp::host {

// From when the device's files are read until this goes, nobody else edits the device, so an edit that is made of what
// was read loses nobody's work. That holds for all device directories whose running.json is a link to one file, too:
// what is locked is the folder of the file. Used by one thread at a time.
class OCLACP_HOST_API EditableDirectory {
 public:
  // As DirectoryDevice. Also throws Error when another edit holds the device for too long.
  EditableDirectory(const ly_ctx* native, const std::string& directory);

  [[nodiscard]] const Device& device() const { return device_; }

  // Makes `running`, a valid configuration of the native models, the device's running configuration, for good. Whoever
  // reads the device sees the old or the new one. Throws Error, and the old one stays. device() goes on answering
  // from the old one.
  void commit(const lyd_node* running);

 private:
  const ly_ctx* native_;
  std::string directory_;
  std::string file_;  // the running configuration, where it really is
  DirectoryLock lock_;
  DirectoryDevice device_;
};

}  // namespace oclacp::host
