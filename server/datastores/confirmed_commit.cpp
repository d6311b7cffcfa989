#include "server/datastores/confirmed_commit.h"

#include <algorithm>
#include <charconv>

#include "host/base/error.h"
#include "host/yang/native_document.h"
#include "host/yang/tree_printer.h"
#include "server/datastores/journal.h"
#include "server/datastores/kept_file.h"

namespace oclacp::server {
namespace {

constexpr std::string_view kKind = "oclacp-confirmed-commit";
constexpr unsigned kFormat = 1;
constexpr const char* kName = "confirmed-commit";

uint64_t parse_session(const std::string& text) {
  uint64_t id = 0;
  static_cast<void>(std::from_chars(text.data(), text.data() + text.size(), id));
  return id;
}

}  // namespace

std::optional<PendingCommit> ConfirmedCommitFile::read() const {
  const std::optional<std::string> text = folder_.read(kName);
  if (!text) {
    return std::nullopt;
  }
  const std::string file = folder_.file(kName);
  const KeptFile kept = parse_kept_file(*text, kKind, kFormat, 2, file);
  PendingCommit pending;
  pending.owner = {parse_session(kept.field("session", file)), kept.field("user", file), kept.field("by", file)};
  pending.persist_id = kept.field("persist-id", file);
  pending.started = parse_time(kept.field("started", file), file);
  pending.deadline = parse_time(kept.field("deadline", file), file);
  pending.boot_id = kept.field("boot-id", file);
  pending.before = host::NativeDocument(native_, kept.sections[0], file, LYD_VALIDATE_NO_STATE, host::DataKind::kNative)
                       .take_whole();
  pending.changes = parse_changes(kept.sections[1], file);
  return pending;
}

void ConfirmedCommitFile::write(const PendingCommit& pending) {
  const KeptFile kept = {{{"session", std::to_string(pending.owner.id)},
                          {"user", pending.owner.user},
                          {"by", pending.owner.name},
                          {"persist-id", pending.persist_id},
                          {"started", print_time(pending.started)},
                          {"deadline", print_time(pending.deadline)},
                          {"boot-id", pending.boot_id}},
                         {host::print_tree(native_, pending.before.get(), LYD_JSON), print_changes(pending.changes)}};
  folder_.write(kName, print_kept_file(kept, kKind, kFormat));
}

void ConfirmedCommitFile::remove() {
  folder_.remove(kName);
}

host::TreePtr without_commit(const ly_ctx* native, const PendingCommit& pending, const lyd_node* running) {
  Changes back = reversed(pending.changes);
  // What is back already was brought back by a rollback that did not come to its end.
  std::erase_if(back, [&](const Change& change) { return shown_side(running, change) == Shown::kAfter; });
  const host::TreePtr committed = with_changes(native, pending.before.get(), pending.changes);
  if (find_collision(back, find_changes(committed.get(), running)) != nullptr) {
    return copy_of(pending.before.get());
  }
  return with_changes(native, running, back);
}

}  // namespace oclacp::server
