#include "server/engine/read_cache.h"

#include <algorithm>
#include <utility>

namespace oclacp::server {

std::shared_ptr<const host::Answer> ReadCache::get(const std::shared_ptr<const host::DeviceSnapshot>& snapshot,
                                                   const std::vector<std::string>& paths,
                                                   const host::ReadOptions& options) {
  const auto found = std::find_if(kept_.begin(), kept_.end(), [&](const Kept& kept) {
    return kept.snapshot == snapshot && kept.content == options.content && kept.keeps_going == options.keeps_going &&
           kept.paths == paths;
  });
  if (found != kept_.end()) {
    std::rotate(kept_.begin(), found, found + 1);
    return kept_.front().answer;
  }
  auto answer = std::make_shared<const host::Answer>(read_(*snapshot, paths, options));
  kept_.push_front({snapshot, paths, options.content, options.keeps_going, answer});
  if (kept_.size() > most_answers_) {
    kept_.pop_back();
  }
  return answer;
}

}  // namespace oclacp::server
