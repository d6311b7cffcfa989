// Translating one request: what the host is for.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/error.h"
#include "host/base/export.h"
#include "host/devices/device.h"
#include "host/translation/answer.h"
#include "host/translation/edit_plan.h"
#include "host/translation/record_sinks.h"
#include "host/yang/format.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

struct LoadedMapping;
struct ParsedRequest;

// A request that was read, before anything of a device is looked at.
struct OCLACP_HOST_API FreeRequest {
  void operator()(ParsedRequest* request) const;
};
using ParsedRequestPtr = std::unique_ptr<ParsedRequest, FreeRequest>;

// What a read is about (the "content" of RFC 8040, 4.8.1).
enum class Content {
  kConfig,
  kAll,  // configuration and state
};

// What happens to nodes that carry no operation of their own (RFC 6241, 7.2).
enum class DefaultOperation {
  kMerge,
  kReplace,  // the top node is replaced
  kDelete,   // every node that the request names without naming anything below it is deleted
};

// How an edit is taken.
struct EditOptions {
  DefaultOperation operation = DefaultOperation::kMerge;
  // The path of the node that the request holds, or holds children of (RFC 8040, a resource); empty for a request that
  // begins at the top.
  std::string at = {};
  // Refused when a node would be ignored, or when the LACP of a sub-interface is set, which is never read back. A plan
  // also for what would be a warning (edit_plan.h).
  bool is_strict = false;
  std::optional<Format> format = {};  // of the native edit; nothing for the request's own
  RecordSinks records = {};
};

// How an edit is planned.
struct PlanOptions : EditOptions {
  bool is_dry_run = false;      // the plan has the native edit and what it changes
  bool ignores_absent = false;  // deletes of paths only: what is not there is as good as deleted
};

// How a device is read.
struct ReadOptions {
  Content content = Content::kConfig;
  // An entry that cannot be translated is left out and reported, instead of ending the whole.
  bool keeps_going = false;
  RecordSinks records = {};
};

// A native edit.
struct Translation {
  std::string text;  // a document of the native models
  // Native list entries that the module opened without ever naming them, left out with all that is in them.
  size_t dropped_entries = 0;
};

// Loaded modules with the schemas on both sides. Used by one thread at a time; serves any number of requests.
class OCLACP_HOST_API Translator {
 public:
  // `libraries`: the mapping modules' shared libraries, each with its manifest beside it (yang/oclacp-module.yang).
  // Throws Error.
  Translator(const SchemaDirectories& schemas, const std::vector<std::string>& libraries);
  Translator(const SchemaDirectories& schemas, const std::string& library)
      : Translator(schemas, std::vector<std::string>{library}) {}
  ~Translator();
  Translator(const Translator&) = delete;
  Translator& operator=(const Translator&) = delete;
  Translator(Translator&&) = delete;
  Translator& operator=(Translator&&) = delete;

  // The contexts that a device's files are read with, and that answers are made in.
  [[nodiscard]] const ly_ctx* native_context() const;
  [[nodiscard]] const ly_ctx* openconfig_context() const;

  // Paths are those of nodes of the served models (trees/path_request.h).

  // Translates an edit in JSON or XML. Throws Error; nothing is changed by a refused request, nor by any other.
  Translation translate_edit(const std::string& request, const DeviceSnapshot& device, const EditOptions& options);

  // The native paths that a read in JSON or XML asks for (trees/read_paths.h). Throws Error.
  std::vector<std::string> translate_read(const std::string& request, const DeviceSnapshot& device, Content content,
                                          const RecordSinks& records = {});

  // Reads what `paths` lead to, which may be nodes that different modules serve. Throws Error.
  Answer get(const DeviceSnapshot& device, const std::vector<std::string>& paths, const ReadOptions& options);

  // The native configuration of the interfaces below `paths` that OpenConfig has no form for: a line for each leaf,
  // with its native path and its value. Throws Error.
  std::string list_unmapped(const DeviceSnapshot& device, const std::vector<std::string>& paths);

  // Translates native data in JSON (RFC 7951) or XML, with any number of native top nodes. The interfaces that have
  // LACP are those of `device`; with null those of the input. Throws Error.
  Answer to_openconfig(const std::string& native, const DeviceSnapshot* device, Content content,
                       const RecordSinks& records = {});

  // Read an edit in JSON or XML, or the delete of the nodes that `paths` lead to. Nothing of a device is looked at, so
  // that this is done before one is locked. Throw Error.
  [[nodiscard]] ParsedRequestPtr read_edit(const std::string& request, const EditOptions& options) const;
  [[nodiscard]] ParsedRequestPtr read_delete(const std::vector<std::string>& paths, const PlanOptions& options) const;

  // Translates an edit that was read and applies it to the configuration of `device`, which stays as it is; to carry
  // the plan out is the caller's part. Throws Error as translate_edit() does, and for what cannot be applied.
  EditPlan plan(ParsedRequestPtr request, const DeviceSnapshot& device, const PlanOptions& options);

  // Both in one.
  EditPlan plan_edit(const std::string& request, const DeviceSnapshot& device, const PlanOptions& options);
  EditPlan plan_delete(const std::vector<std::string>& paths, const DeviceSnapshot& device, const PlanOptions& options);

 private:
  std::unique_ptr<LoadedMapping> mapping_;
};

// The version of the host.
OCLACP_HOST_API const char* version();

}  // namespace oclacp::host
