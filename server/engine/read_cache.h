// Answers, kept as long as what they were made of stays.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/translation/translator.h"

namespace oclacp::server {

// Used by one thread at a time.
class ReadCache {
 public:
  using Read = std::function<host::Answer(const host::DeviceSnapshot& snapshot, const std::vector<std::string>& paths,
                                          const host::ReadOptions& options)>;

  // `most_answers`: the one that was used longest ago goes.
  ReadCache(Read read, size_t most_answers) : read_(std::move(read)), most_answers_(most_answers) {}

  // What `paths` lead to in a snapshot; the same object as long as it is asked of the same snapshot. Throws what the
  // read throws, which is not kept.
  std::shared_ptr<const host::Answer> get(const std::shared_ptr<const host::DeviceSnapshot>& snapshot,
                                          const std::vector<std::string>& paths, const host::ReadOptions& options);

 private:
  struct Kept {
    std::shared_ptr<const host::DeviceSnapshot> snapshot;  // so that no other one gets its address
    std::vector<std::string> paths;
    host::Content content;
    bool keeps_going;
    std::shared_ptr<const host::Answer> answer;
  };

  Read read_;
  size_t most_answers_;
  std::deque<Kept> kept_;  // what was used last stands first
};

}  // namespace oclacp::server
