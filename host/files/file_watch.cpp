#include "host/files/file_watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

constexpr uint32_t kEvents = IN_MODIFY | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                             IN_ATTRIB | IN_MOVE_SELF | IN_DELETE_SELF;

bool is_same(const std::optional<FileVersion>& one, const std::optional<FileVersion>& other) {
  return one.has_value() == other.has_value() && (!one || one->looks_like(*other));
}

// Where a file's content may be changed: at its own name and, if that is a link, where the link leads.
std::vector<fs::path> places_of(const std::string& file) {
  std::vector<fs::path> places = {file};
  std::error_code trouble;
  if (fs::is_symlink(file, trouble)) {
    if (fs::path real = fs::canonical(file, trouble); !trouble) {
      places.push_back(std::move(real));
    }
  }
  return places;
}

}  // namespace

FileWatch::FileWatch(std::vector<std::string> files)
    : files_(std::move(files)), versions_(files_.size()), events_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (!events_.is_open()) {
    throw system_error(errno, files_.front(), "cannot be watched: ");
  }
  watch_folders();
  std::transform(files_.begin(), files_.end(), versions_.begin(),
                 [](const std::string& file) { return file_version(file); });
}

// A folder that is watched already keeps its watch.
void FileWatch::watch_folders() {
  names_.clear();
  for (const std::string& file : files_) {
    for (const fs::path& place : places_of(file)) {
      const fs::path folder = place.has_parent_path() ? place.parent_path() : fs::path(".");
      const int watch = inotify_add_watch(events_.number(), folder.c_str(), kEvents);
      if (watch >= 0) {
        names_[watch].push_back(place.filename());
      } else if (errno == ENOSPC || errno == ENOMEM) {
        throw system_error(errno, file, "cannot be watched: ");
      }
    }
  }
}

bool FileWatch::is_watched(int watch, const char* name) const {
  const auto found = names_.find(watch);
  return found != names_.end() && std::find(found->second.begin(), found->second.end(), name) != found->second.end();
}

// Whether an event names a watched file, or some may be lost.
bool FileWatch::take_events() {
  bool is_named = false;
  alignas(inotify_event) std::array<char, 4096> buffer{};
  while (true) {
    const ssize_t size = retry_interrupted([&] { return read(events_.number(), buffer.data(), buffer.size()); });
    if (size <= 0) {
      return is_named;
    }
    const char* const end = buffer.data() + size;
    for (const char* at = buffer.data(); at < end;) {
      const auto* event = reinterpret_cast<const inotify_event*>(at);
      is_named |= (event->mask & IN_Q_OVERFLOW) != 0 || (event->len != 0 && is_watched(event->wd, event->name));
      at += sizeof(inotify_event) + event->len;
    }
  }
}

bool FileWatch::take_changes() {
  bool is_changed = take_events();
  watch_folders();
  // What no name tells: a link on the way that was turned, a folder that went or is back.
  for (size_t index = 0; index < files_.size(); ++index) {
    std::optional<FileVersion> now = file_version(files_[index]);
    is_changed |= !is_same(now, versions_[index]);
    versions_[index] = now;
  }
  return is_changed;
}

}  // namespace oclacp::host
