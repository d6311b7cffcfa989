// The recording platform: the whole platform contract, implemented for tests. It behaves as a framework does, writes
// down every call in order, gives any answer that a test scripts, and holds what a device would: interfaces and the
// data store's items.
//
// The contract's functions work on the Platform that was made last, until it is gone. All on one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "imc/imc.h"
#include "sysdb/sysdb.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/map.h"

namespace support {

// Namespaces of the models, as the module and its requests name them.
inline constexpr char kOpenconfigLacp[] = "http://openconfig.net/yang/lacp";
inline constexpr char kIfmgrCfg[] = "urn:talvo-brin:yang:Talvo-Brin-QD-ifmgr-cfg";
inline constexpr char kBundlemgrCfg[] = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-cfg";
inline constexpr char kBundlemgrOper[] = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-oper";

// Codes with which the platform fails on its own account.
inline constexpr cerrno kStringRefused = 0x0b000001;     // a bounded string operation: missing text, or it does not fit
inline constexpr cerrno kInterfaceUnknown = 0x0b000002;  // the interface manager knows no such interface
inline constexpr cerrno kListExhausted = 0x0b000003;     // the data store's list has no further item
inline constexpr cerrno kNodeUnknown = 0x0b000004;       // no node around the current one has such a leaf

// One call of a platform operation.
struct Call {
  std::string function;
  std::string arguments;  // as text; nodes by their tags, without the context and the output tree
  std::string answer;     // as text; empty where the operation answers nothing or success

  [[nodiscard]] std::string text() const;
};

// One record, in one of the two sinks, taken apart.
struct Record {
  enum class Sink { kDebugLog, kTraceBuffer };

  Sink sink;
  std::string level;                            // "ERR" or "TRC"
  std::string text;                             // after the prefix
  std::size_t length = 0;                       // of the whole record
  const std::uint32_t* call_site_id = nullptr;  // debug log
  const yfw_log_stream* stream = nullptr;       // debug log: where it went
  std::uint32_t sequence = 0;                   // trace buffer
  std::string handler;                          // trace buffer
  int line = 0;                                 // trace buffer
};

// One path that was added to the output, or one list entry that was found there or created.
struct Addition {
  std::string path;
  std::string key = {};  // of an entry: its key leaf and the key, as "name=value"
  std::string ns;
  std::optional<std::string> value;
  const yfw_datatree* source;
  std::uint32_t operation;  // the edit operation that the new node takes: the source's own or its nearest ancestor's
  std::uintptr_t word;
  int list_flag;
  int last_flag;
};

// An interface that the interface manager knows.
struct Interface {
  std::uint32_t handle = 1;
  std::uint32_t attribute = 0;
  std::uint64_t flags = 0;
  std::uint32_t name_kind = IMC_NAME_KIND_PHYSICAL;
};

// A fault that was injected: the call, and what held at that time.
struct Fault {
  Call call;
  std::string handler;          // that of the last record before it
  std::uint32_t whole_subtree;  // the request's mark
  std::uint32_t replace_flags;  // the request's mark
  bool store_is_open;           // a connection to the data store
  std::set<std::string> named;  // the tags of the current node's children
  std::size_t records;          // of the trace buffer, so far
  unsigned error_paths;         // how often the error path was marked so far
};

// A list that the data store gave out.
struct ResultList {
  std::vector<std::string> items;
  std::size_t next = 0;
};

// All that the platform saw.
struct Seen {
  std::vector<Call> calls;
  std::vector<Record> records;
  std::vector<Addition> additions;

  // Uses of the contract that no module may make: freeing what was not given, leaving a node that was not entered, a
  // changed call-site id, a null output, and so on. Empty at the end of every test.
  std::vector<std::string> misuses;

  // What a balanced walk takes back: each is empty at its end.
  std::vector<std::pair<const yfw_datatree*, int>> hierarchy;
  std::vector<yfw_itree_entry> itree_stack;
  std::vector<const yfw_datatree*> output_list;
  bool registration_is_open = false;  // of records

  // Copies made with yfw_strdup() that were not freed; the one in the error-tag field is among them.
  std::set<const void*> copies;
  std::set<sysdb_handle> connections;
  std::map<sysdb_list_handle, ResultList> lists;

  std::deque<yfw_datatree> output_entries;
  std::uint32_t trace_index = 0;
};

class Platform {
 public:
  Platform();
  ~Platform();
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  // The platform that the contract's functions work on. There must be one.
  static Platform& current();

  // ---- The request

  yfw_map_ctx ctx() { return &context_; }
  yfw_datatree* output() { return &output_; }
  yfw_request_state& state() { return state_; }
  yfw_request_descriptor& descriptor() { return descriptor_; }
  void set_operation(std::uint32_t operation) { descriptor_.operation = operation; }

  // Both sinks are open at first.
  void set_logging(bool on) { logging_ = on; }
  void set_tracing(bool on) { context_.trace_enabled = on ? 1 : 0; }

  // A framework that cannot give a request state to a handler.
  void take_request_state_away() { context_.request = nullptr; }

  // ---- The device

  std::vector<std::string> store_items;  // what the data store finds, such as "Bundle-Ether1/lacp/"
  bool store_library_present = true;
  std::map<std::string, Interface> interfaces;       // by entry form
  std::map<std::string, std::string> display_names;  // by data-store element; others get '/' for '_'
  std::set<std::string> lacp_interfaces;             // for which LACP is configured
  std::uint32_t router_type = 8;

  // Answers of yfw_map_get_node_info(), by "path/leaf". What is not here is looked up on the hierarchy.
  std::map<std::string, std::string> node_info;

  // The look-ups that fail although they give their value: their answers, by "path/leaf".
  std::map<std::string, cerrno> node_info_failures;

  // Whether the output list takes the entries that it is given. One that does not keeps its count.
  bool output_list_grows = true;

  void add_physical(const std::string& entry_name);
  void add_virtual(const std::string& entry_name);

  // ---- The script

  // The `nth` call (from 1; 0: every one) of `function` whose arguments contain `containing` gives `answer` instead of
  // doing its work. The first rule that fits is taken.
  void script(std::string function, unsigned nth, std::uint32_t answer, std::string containing = "");

  // Runs `action` before the `nth` call of `function` is carried out.
  void before(std::string function, unsigned nth, std::function<void()> action);

  // The `nth` call, from 1, of any operation that can fail gives `answer`; null from yfw_strdup(), and a missing file
  // from access().
  void inject_fault(unsigned nth, cerrno answer);
  [[nodiscard]] const std::optional<Fault>& fault() const { return fault_; }
  [[nodiscard]] unsigned fallible_calls() const { return fallible_calls_; }

  // ---- What happened

  [[nodiscard]] const Seen& seen() const { return seen_; }
  [[nodiscard]] const std::vector<Call>& calls() const { return seen_.calls; }
  [[nodiscard]] const std::vector<Addition>& additions() const { return seen_.additions; }

  // The error tag, or "" when none is stored.
  [[nodiscard]] std::string error_tag() const;

  // How often an operation was called with arguments that contain a text.
  [[nodiscard]] unsigned count(std::string_view function, std::string_view arguments = "") const;

  // Texts of the trace buffer's records, each as "TRC name: text".
  [[nodiscard]] std::vector<std::string> trace() const;

  // How often the trace has a record.
  [[nodiscard]] unsigned traced(std::string_view handler, std::string_view text) const;

 private:
  friend class Invocation;

  struct Rule {
    std::string function;
    unsigned nth;
    std::uint32_t answer;
    std::string containing;
    unsigned matched = 0;
  };
  struct Action {
    std::string function;
    unsigned nth;
    std::function<void()> run;
    unsigned matched = 0;
  };

  // The scripted answer of a call, if there is one; runs the actions that wait for the call.
  std::optional<std::uint32_t> scripted(const Call& call, bool fallible);

  Platform* outer_;
  yfw_request_descriptor descriptor_{};
  yfw_request_state state_{};
  yfw_map_ctx_record context_{};
  yfw_datatree output_{};
  bool logging_ = true;

  std::vector<Rule> rules_;
  std::vector<Action> actions_;
  unsigned fault_at_ = 0;
  cerrno fault_answer_ = 0;
  std::optional<Fault> fault_;
  unsigned fallible_calls_ = 0;

  Seen seen_;
};

// Whether the calling thread is inside a call of the platform: what is allocated or formatted there is not the
// module's.
bool inside_platform();

// The edit operation that holds for a node: its own, else that of the nearest ancestor that has one. A node's ancestors
// are found through its `framework` field, which a Request fills.
std::uint32_t effective_operation(const yfw_datatree* node);

// Whether a node deletes, by its effective operation.
bool deletes(const yfw_datatree* node);

}  // namespace support
