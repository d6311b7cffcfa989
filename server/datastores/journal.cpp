#include "server/datastores/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "host/base/error.h"
#include "server/datastores/kept_file.h"

namespace oclacp::server {
namespace {

constexpr std::string_view kKind = "oclacp-journal";
constexpr unsigned kFormat = 1;
constexpr const char* kIntent = "journal-intent";
constexpr std::string_view kPrefix = "journal-";

std::optional<uint64_t> to_number(std::string_view text) {
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::string name_of(uint64_t number) {
  return std::string(kPrefix) + std::to_string(number);
}

JournalEntry parse_entry(const std::string& text, const std::string& file) {
  const KeptFile kept = parse_kept_file(text, kKind, kFormat, 1, file);
  JournalEntry entry;
  entry.when = parse_time(kept.field("when", file), file);
  entry.user = kept.field("user", file);
  entry.by = kept.field("by", file);
  entry.note = kept.field("note", file);
  entry.changes = parse_changes(kept.sections[0], file);
  return entry;
}

struct KindWord {
  ChangeKind kind;
  bool is_leaf;
  std::string_view word;
};
constexpr std::array kKindWords = {
    KindWord{ChangeKind::kAdded, true, "added"},     KindWord{ChangeKind::kAdded, false, "added-entry"},
    KindWord{ChangeKind::kDeleted, true, "deleted"}, KindWord{ChangeKind::kDeleted, false, "deleted-entry"},
    KindWord{ChangeKind::kChanged, true, "changed"},
};

Change parse_change(std::string_view line, const std::string& file) {
  std::array<std::string_view, 4> columns;
  for (size_t index = 0; index < columns.size(); ++index) {
    const size_t end = std::min(line.find('\t'), line.size());
    columns[index] = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  const auto* const word = std::find_if(kKindWords.begin(), kKindWords.end(),
                                        [&](const KindWord& known) { return known.word == columns[0]; });
  if (word == kKindWords.end() || columns[1].empty() || !line.empty()) {
    throw host::file_error(host::ErrorKind::kOperationFailed, file, "is damaged: a change is not one");
  }
  return {word->kind, word->is_leaf, unescape(columns[1]), unescape(columns[2]), unescape(columns[3])};
}

}  // namespace

std::string print_changes(const Changes& changes) {
  std::string text;
  for (const Change& change : changes) {
    const auto* const word = std::find_if(kKindWords.begin(), kKindWords.end(), [&](const KindWord& known) {
      return known.kind == change.kind && known.is_leaf == change.is_leaf;
    });
    text.append(word->word).append("\t").append(escape(change.path)).append("\t");
    text.append(escape(change.before)).append("\t").append(escape(change.after)).append("\n");
  }
  return text;
}

Changes parse_changes(std::string_view text, const std::string& file) {
  Changes changes;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    changes.push_back(parse_change(text.substr(0, end), file));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return changes;
}

std::string print_time(Clock::Wall time) {
  return std::to_string(std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count());
}

Clock::Wall parse_time(const std::string& text, const std::string& file) {
  const std::optional<uint64_t> seconds = to_number(text);
  if (!seconds) {
    throw host::file_error(host::ErrorKind::kOperationFailed, file, "is damaged: a time is not one");
  }
  return Clock::Wall(std::chrono::seconds(*seconds));
}

Journal::Journal(StateFolder& folder, size_t most_entries) : folder_(folder), most_entries_(most_entries) {
  for (const std::string& name : folder_.names()) {
    if (name.starts_with(kPrefix)) {
      if (const std::optional<uint64_t> number = to_number(std::string_view(name).substr(kPrefix.size()))) {
        numbers_.push_back(*number);
      }
    }
  }
  std::sort(numbers_.begin(), numbers_.end());
}

JournalEntry Journal::read(uint64_t number) const {
  const std::optional<std::string> text = folder_.read(name_of(number));
  if (!text) {
    throw host::file_error(host::ErrorKind::kDataMissing, folder_.file(name_of(number)),
                           "the journal has no such commit");
  }
  JournalEntry entry = parse_entry(*text, folder_.file(name_of(number)));
  entry.number = number;
  return entry;
}

void Journal::begin(const JournalEntry& entry) {
  const KeptFile kept = {
      {{"when", print_time(entry.when)}, {"user", entry.user}, {"by", entry.by}, {"note", entry.note}},
      {print_changes(entry.changes)}};
  folder_.write(kIntent, print_kept_file(kept, kKind, kFormat));
}

uint64_t Journal::finish() {
  const uint64_t number = next_number();
  folder_.rename(kIntent, name_of(number));
  numbers_.push_back(number);
  while (numbers_.size() > most_entries_) {
    folder_.remove(name_of(numbers_.front()));
    numbers_.erase(numbers_.begin());
  }
  return number;
}

void Journal::abandon() {
  folder_.remove(kIntent);
}

std::optional<JournalEntry> Journal::unfinished() const {
  const std::optional<std::string> text = folder_.read(kIntent);
  return text ? std::optional(parse_entry(*text, folder_.file(kIntent))) : std::nullopt;
}

}  // namespace oclacp::server
