#include "server/datastores/path_watch.h"

#include "host/base/error.h"

namespace oclacp::server {

std::pair<PathWatch::Id, LeafTable> PathWatch::add(const Path& path, Subscriber subscriber) {
  auto found = watched_.find(path);
  if (found == watched_.end()) {
    found = watched_.emplace(path, Watched{read_(path), false, {}}).first;
  } else {
    // The new one is not told what the others have not been told yet.
    update(path, found->second);
  }
  const Id id = ++last_id_;
  found->second.subscribers.emplace(id, std::move(subscriber));
  path_of_.emplace(id, path);
  return {id, found->second.leaves};
}

void PathWatch::remove(Id id) {
  const auto path = path_of_.find(id);
  if (path == path_of_.end()) {
    return;
  }
  const auto watched = watched_.find(path->second);
  watched->second.subscribers.erase(id);
  if (watched->second.subscribers.empty()) {
    watched_.erase(watched);
  }
  path_of_.erase(path);
}

void PathWatch::update() {
  for (auto& [path, watched] : watched_) {
    update(path, watched);
  }
}

void PathWatch::update(const Path& path, Watched& watched) {
  LeafTable now;
  try {
    now = read_(path);
  } catch (const host::Error& error) {
    if (!std::exchange(watched.has_failed, true)) {
      for (const auto& [id, subscriber] : watched.subscribers) {
        subscriber.fail(error);
      }
    }
    return;
  }
  watched.has_failed = false;
  const Changes changes = find_changes(watched.leaves, now);
  watched.leaves = std::move(now);
  if (!changes.empty()) {
    for (const auto& [id, subscriber] : watched.subscribers) {
      subscriber.tell(changes);
    }
  }
}

}  // namespace oclacp::server
