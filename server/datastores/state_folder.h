// The folder that the datastores of one device keep their state in.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/files/file_lock.h"

namespace oclacp::server {

// Files by their names, each of which is replaced whole. What was written, renamed or removed is on the disk when the
// call returns. The folder belongs to one process at a time. Used by one thread at a time.
class StateFolder {
 public:
  // Makes the folder when it is not there, for nobody but the user. Throws host::Error, also when another process
  // works with it.
  explicit StateFolder(const std::string& path);
  virtual ~StateFolder() = default;
  StateFolder(const StateFolder&) = delete;
  StateFolder& operator=(const StateFolder&) = delete;
  StateFolder(StateFolder&&) = delete;
  StateFolder& operator=(StateFolder&&) = delete;

  // For messages.
  [[nodiscard]] std::string file(const std::string& name) const { return path_ + "/" + name; }

  // All throw host::Error.
  // Nothing when there is no such file.
  [[nodiscard]] std::optional<std::string> read(const std::string& name) const;
  // In any order. What a crash left half-written is not among them.
  [[nodiscard]] std::vector<std::string> names() const;
  // Whoever reads the file, after a crash too, finds the old content or the new one.
  virtual void write(const std::string& name, const std::string& content);
  virtual void rename(const std::string& from, const std::string& to);
  // That there is none is no failure.
  virtual void remove(const std::string& name);

 private:
  void make_names_durable() const;

  std::string path_;
  host::FileLock lock_;
};

}  // namespace oclacp::server
