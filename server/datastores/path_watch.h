// Telling subscribers of paths what changed, leaf by leaf.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "host/translation/translator.h"
#include "server/datastores/leaf_table.h"

namespace oclacp::server {

// Any number of subscribers of one path share one read a change. Used by one thread at a time.
class PathWatch {
 public:
  using Id = uint64_t;
  using Path = std::pair<std::string, host::Content>;  // of the OpenConfig side; with state or without
  // What a path leads to now. Throws host::Error.
  using Read = std::function<LeafTable(const Path& path)>;
  // Is told of changes, never of none. A failure to read is told once until a read succeeds. Neither throws, nor adds
  // or removes subscribers.
  struct Subscriber {
    std::function<void(const Changes& changes)> tell;
    std::function<void(const host::Error& error)> fail;
  };

  explicit PathWatch(Read read) : read_(std::move(read)) {}

  // Returns what the path leads to, from where changes are told. Throws what the read throws.
  std::pair<Id, LeafTable> add(const Path& path, Subscriber subscriber);
  void remove(Id id);
  [[nodiscard]] size_t size() const { return path_of_.size(); }

  // To be called when something may have changed: reads each path once and tells its subscribers.
  void update();

 private:
  struct Watched {
    LeafTable leaves;
    bool has_failed = false;
    std::map<Id, Subscriber> subscribers;
  };

  void update(const Path& path, Watched& watched);

  Read read_;
  std::map<Path, Watched> watched_;
  std::map<Id, Path> path_of_;
  Id last_id_ = 0;
};

}  // namespace oclacp::server
