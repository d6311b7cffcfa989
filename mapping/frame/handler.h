// The handler frame: how every exported function of a mapping module records that it ran, what went wrong and how it
// ended. Only the frame writes records.
//
// Each record goes to two sinks: the framework's debug log, when its filter lets the level pass, and the trace buffer,
// when tracing is on. With both off nothing is formatted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/message.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

namespace ymap {

// The functions that the frame runs and the engines dispatch to.
using NodeHandler = cerrno(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
using ContainerHandler = cerrno(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);

// The log facility's ids of call sites, one for each place that emits a debug-log line. They start as all ones; the
// module only hands out their addresses.
struct CallSiteIds {
  std::uint32_t ids[kCallSites];
};

consteval CallSiteIds unset_call_site_ids() {
  CallSiteIds made{};
  for (std::uint32_t& id : made.ids) id = 0xFFFFFFFF;
  return made;
}

// The identity of a handler, under which it records.
struct Handler {
  const char* name;
  const char* file;
  int line;  // where the handler's row or function stands
  const char* prototype;
  std::uint32_t* call_site_ids;  // indexed by Message::call_site
};

// Ends the process through __assert_fail() when the context is null: that is a programming error of the framework.
void assert_context(const Handler& handler, yfw_map_ctx ctx);

// Writes one record. The line number that it carries is that of the handler's row and the message's call site as two
// digits, so that Start, each error and End differ, and the row is found by dropping the last two.
void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<0> message);
void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<1> message, const char* text);
void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<2> message, const char* text, const char* other);

// One run of a handler, from Start to End.
class Activation {
 public:
  // Checks the context and records Start.
  Activation(const Handler& handler, yfw_map_ctx ctx) : handler_(handler), ctx_(ctx) {
    assert_context(handler, ctx);
    record(message::kStart);
  }

  // Whether the input node and the output tree are there. If not, that is recorded and the error path is marked, and
  // the handler leaves with YFW_INVALID_ARGUMENTS and without End.
  [[nodiscard]] bool has_arguments(const yfw_datatree* in, const yfw_datatree* out) const;

  void record(MessageWith<0> message) const { ymap::record(handler_, ctx_, message); }
  void record(MessageWith<1> message, const char* text) const { ymap::record(handler_, ctx_, message, text); }
  void record(MessageWith<2> message, const char* text, const char* other) const {
    ymap::record(handler_, ctx_, message, text, other);
  }

  // Records a failed platform call with the handler's name and the text of its code.
  void record_failed_call(MessageWith<2> message, cerrno status) const;

  // Records End and returns `status`.
  [[nodiscard]] cerrno end(cerrno status) const {
    record(message::kEnd);
    return status;
  }

  [[nodiscard]] const char* name() const { return handler_.name; }

 private:
  const Handler& handler_;
  yfw_map_ctx ctx_;
};

// How the work of a handler ended: its status, and whether the frame records End. A status alone stands for both.
struct Outcome {
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Outcome(cerrno ending) : status(ending) {}

  // For a handler that leaves at once.
  static constexpr Outcome without_end(cerrno status) {
    Outcome outcome = status;
    outcome.records_end = false;
    return outcome;
  }

  cerrno status;
  bool records_end = true;
};

// Runs `work` in the frame of a handler that takes an input node and an output tree. `work` is given the activation if
// it takes one, and returns a status or an Outcome.
template <typename Work>
cerrno run_in_frame(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, const yfw_datatree* out,
                    Work work) {
  const Activation run(handler, ctx);
  if (!run.has_arguments(in, out)) return YFW_INVALID_ARGUMENTS;
  const Outcome outcome = [&]() -> Outcome {
    if constexpr (std::is_invocable_v<Work, const Activation&>) {
      return work(run);
    } else {
      return work();
    }
  }();
  return outcome.records_end ? run.end(outcome.status) : outcome.status;
}

}  // namespace ymap

// Defines the identity of the function it stands in, as the local `handler`.
#define YMAP_HANDLER_IDENTITY(NAME, PROTOTYPE)                                                                    \
  static constinit auto call_site_ids = ymap::unset_call_site_ids();                                              \
  static constexpr ymap::Handler handler {                                                                        \
    .name = #NAME, .file = __FILE__, .line = __LINE__, .prototype = PROTOTYPE, .call_site_ids = call_site_ids.ids \
  }

#define YMAP_NODE_PROTOTYPE(NAME) "cerrno " #NAME "(yfw_map_ctx, const yfw_datatree *, yfw_datatree *)"
#define YMAP_CONTAINER_PROTOTYPE(NAME) \
  "cerrno " #NAME "(yfw_map_ctx, const yfw_datatree *, unsigned int, yfw_datatree *)"

// Defines an exported function by a row: its body is one call of an engine function with the row as data. The row is
// what follows the engine function's name.
#define YMAP_DEFINE_HANDLER(NAME, RUN, ...)                                 \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) { \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                 \
    static constexpr auto row = __VA_ARGS__;                                \
    return RUN(handler, row, ctx, in, out);                                 \
  }

// The same for a function that needs no row.
#define YMAP_DEFINE_SIMPLE_HANDLER(NAME, RUN)                               \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) { \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                 \
    return RUN(handler, ctx, in, out);                                      \
  }

#define YMAP_DEFINE_CONTAINER_HANDLER(NAME, RUN)                                                            \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int /* child_count */, yfw_datatree* out) { \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_CONTAINER_PROTOTYPE(NAME));                                            \
    return RUN(handler, ctx, in, out);                                                                      \
  }
