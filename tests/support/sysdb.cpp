// The data-store client of the recording platform, and the probe for its library.
#include "sysdb/sysdb.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <deque>
#include <string>

#include "support/invocation.h"

using support::Invocation;
using support::shown;

sysdb_handle yfw_intf_mgbl_connid = nullptr;

namespace {

// Handles are opaque to the module; none is given twice.
template <typename Handle>
Handle new_handle() {
  static std::deque<char> given;
  return reinterpret_cast<Handle>(&given.emplace_back());
}

}  // namespace

// Answers the probe for the client's library; other files are the system's.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
int access(const char* path, int mode) noexcept {
  if (std::strcmp(path, SYSDB_LIBRARY_PATH) != 0) return faccessat(AT_FDCWD, path, mode, 0);
  Invocation call("access");
  call.arguments({shown(path)});
  call.require(mode == R_OK, "asks for more than reading");
  return call.number([&] { return call.platform().store_library_present ? 0 : -1; }, true) == 0 ? 0 : -1;
}

cerrno _sysdb_bind(sysdb_handle* connection, const char* path, uint32_t flags) {
  Invocation call("_sysdb_bind");
  call.arguments({shown(path), "flags=" + std::to_string(flags)});
  return call.status([&] {
    *connection = new_handle<sysdb_handle>();
    call.seen().connections.insert(*connection);
    return YFW_OK;
  });
}

cerrno _sysdb_unbind(sysdb_handle connection) {
  Invocation call("_sysdb_unbind");
  call.require(call.seen().connections.erase(connection) != 0, "not an open connection");
  return call.status([] { return YFW_OK; });
}

cerrno sysdb_find(sysdb_handle connection, const char* pattern, const char* second_pattern, uint32_t* count,
                  sysdb_list_handle* list, uint32_t flags, uint32_t zero) {
  Invocation call("sysdb_find");
  call.arguments({shown(pattern), shown(second_pattern), "flags=" + std::to_string(flags)});
  call.require(call.seen().connections.count(connection) != 0, "not an open connection");
  call.require(zero == 0, "an argument is not zero");
  const cerrno status = call.status([&] {
    const auto& items = call.platform().store_items;
    *count = static_cast<uint32_t>(items.size());
    *list = items.empty() ? nullptr : new_handle<sysdb_list_handle>();
    if (*list != nullptr) call.seen().lists[*list].items = items;
    return YFW_OK;
  });
  if (status == YFW_OK) call.answer(std::to_string(*count) + " items");
  return status;
}

cerrno sysdb_list_next(sysdb_list_handle list, char** path, uint32_t* item_type, uint32_t* item_size) {
  Invocation call("sysdb_list_next");
  const auto found = call.seen().lists.find(list);
  call.require(found != call.seen().lists.end(), "not a list");
  const cerrno status = call.status([&] {
    if (found == call.seen().lists.end()) return support::kListExhausted;
    support::ResultList& items = found->second;
    if (items.next == items.items.size()) return support::kListExhausted;
    *path = items.items[items.next++].data();
    *item_type = 1;
    *item_size = 1;
    return YFW_OK;
  });
  if (status == YFW_OK) call.answer(shown(*path));
  return status;
}

cerrno sysdb_list_free(sysdb_list_handle list) {
  Invocation call("sysdb_list_free");
  call.require(call.seen().lists.erase(list) != 0, "not a list");
  return call.status([] { return YFW_OK; });
}
