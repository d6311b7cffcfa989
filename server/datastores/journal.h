// The journal of a device's configurations.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "server/datastores/change.h"
#include "server/datastores/clock.h"
#include "server/datastores/state_folder.h"

namespace oclacp::server {

// One commit: who, when, by what, and the difference.
struct JournalEntry {
  uint64_t number = 0;  // from 1, each one higher than the one before
  Clock::Wall when;     // in whole seconds
  std::string user;
  std::string by;    // what it came by, such as the session
  std::string note;  // what it was beyond a commit, such as the return of a configuration; may be empty
  Changes changes;
};

// Keeps the last commits, one file each: "journal-12". An entry is written before the device is changed, as
// "journal-intent", and gets its name afterwards, so that a crash in between is seen. Used by one thread at a time.
class Journal {
 public:
  // `most_entries`: older ones go. `folder` outlives this. Throws host::Error when the folder cannot be read.
  Journal(StateFolder& folder, size_t most_entries);

  // All throw host::Error; reading a damaged file, or one of another format, as well.

  // The numbers of what is kept, from the oldest on.
  [[nodiscard]] const std::vector<uint64_t>& numbers() const { return numbers_; }
  // Throws with ErrorKind::kDataMissing when it is not kept.
  [[nodiscard]] JournalEntry read(uint64_t number) const;

  // Keeps what is about to be done, durably. The number is the journal's.
  void begin(const JournalEntry& entry);
  // It was done, or was not. Returns its number.
  uint64_t finish();
  void abandon();
  // What was begun and neither done nor not, as a crash leaves it.
  [[nodiscard]] std::optional<JournalEntry> unfinished() const;

 private:
  [[nodiscard]] uint64_t next_number() const { return numbers_.empty() ? 1 : numbers_.back() + 1; }

  StateFolder& folder_;
  size_t most_entries_;
  std::vector<uint64_t> numbers_;
};

// Changes as lines of text, and back. `file` is for messages. Throws host::Error for what is no such text.
std::string print_changes(const Changes& changes);
Changes parse_changes(std::string_view text, const std::string& file);

// Whole seconds since the epoch, as a field of a kept file.
std::string print_time(Clock::Wall time);
Clock::Wall parse_time(const std::string& text, const std::string& file);

}  // namespace oclacp::server
