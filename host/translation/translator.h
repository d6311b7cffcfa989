// Translating one request: what the host is for.
#pragma once

#include <libyang/libyang.h>

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "host/base/error.h"
#include "host/base/export.h"
#include "host/devices/device.h"
#include "host/translation/edit_plan.h"
#include "host/trees/answer_data.h"
#include "host/yang/libyang_ptr.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

struct ParsedRequest;

enum class RequestKind { kEdit, kReadConfig, kReadState };

// What happens to nodes that carry no operation of their own (RFC 6241, 7.2).
enum class DefaultOperation {
  kMerge,
  kReplace,  // the top node is replaced
  kDelete,   // every node that the request names without naming anything below it is deleted
};

enum class Format { kAsInput, kJson, kXml };

// The same for libyang; `input` is the format of the input.
inline LYD_FORMAT libyang_format(Format format, LYD_FORMAT input) {
  switch (format) {
    case Format::kJson:
      return LYD_JSON;
    case Format::kXml:
      return LYD_XML;
    case Format::kAsInput:
      break;
  }
  return input;
}

struct TranslateOptions {
  RequestKind kind = RequestKind::kEdit;
  DefaultOperation operation = DefaultOperation::kMerge;  // edits only
  Format format = Format::kAsInput;                       // edits only
  // Edits only: refused when a node would be ignored, or when the LACP of a sub-interface is set, which is never read
  // back. Plans also for what would be a warning (edit_plan.h).
  bool is_strict = false;
  bool is_dry_run = false;  // plans only: the plan tells the native edit and what it changes
  // Edits only: the path of the node that the request holds, or holds children of (RFC 8040, a resource); empty for a
  // request that begins at the top.
  std::string at = {};
  bool ignores_absent = false;  // deletes of paths only: what is not there is as good as deleted
  // Where the module's records go; null for nowhere. Both are also filled when the translation is refused.
  std::ostream* debug_log = nullptr;
  std::vector<std::string>* trace = nullptr;
};

struct Translation {
  // An edit: a document of the native models. A read: the native paths that it asks for, one a line.
  std::string text;
  // Native list entries that the module opened without ever naming them, left out of an edit with all that is in them.
  size_t dropped_entries = 0;
};

struct GetOptions {
  std::vector<std::string> paths = {"/lacp"};   // of nodes of openconfig-lacp (trees/path_request.h)
  RequestKind kind = RequestKind::kReadConfig;  // a read: of configuration, or of state too
  // An entry that cannot be translated is left out and told, instead of ending the whole.
  bool keeps_going = false;
  std::ostream* debug_log = nullptr;  // both as in TranslateOptions
  std::vector<std::string>* trace = nullptr;
};

struct ToOpenconfigOptions {
  RequestKind kind = RequestKind::kReadConfig;  // a read: of configuration, or of state too
  std::ostream* debug_log = nullptr;            // both as in TranslateOptions
  std::vector<std::string>* trace = nullptr;
};

// OpenConfig data made of native data.
struct Answer {
  AnswerData data;                     // lives no longer than the translator
  std::vector<Error> failures;         // why entries were left out; a sentence each, in the form of a Error
  size_t dropped_leaves = 0;           // left out because the module named no list entry for them
  std::vector<std::string> valueless;  // leaves that were left out because what the device says there has no form
  LYD_FORMAT input_format = LYD_JSON;  // of the native data that was translated
};

// A loaded module with the schemas on both sides. Used by one thread at a time; serves any number of requests.
class OCLACP_HOST_API Translator {
 public:
  // `module_file`: the mapping module's shared library. Throws Error.
  Translator(const SchemaDirectories& schemas, const std::string& module_file);
  ~Translator();
  Translator(const Translator&) = delete;
  Translator& operator=(const Translator&) = delete;
  Translator(Translator&&) = delete;
  Translator& operator=(Translator&&) = delete;

  // The contexts that a device's files are read with, and that answers are made in.
  [[nodiscard]] const ly_ctx* native_context() const;
  [[nodiscard]] const ly_ctx* openconfig_context() const;

  // Translates a request in JSON or XML. Throws Error; nothing is changed by a refused request, nor by any other.
  Translation translate(const std::string& request, const DeviceSnapshot& device, const TranslateOptions& options);

  // Reads a device: its configuration, or its operational state too. Throws Error.
  Answer get(const DeviceSnapshot& device, const GetOptions& options);

  // The native configuration of the interfaces below `paths` (as in GetOptions) that OpenConfig has no form for: a line
  // for each leaf, with its native path and its value. Throws Error.
  std::string list_unmapped(const DeviceSnapshot& device, const std::vector<std::string>& paths);

  // Translates native data in JSON (RFC 7951) or XML, with any number of native top nodes. The interfaces that have
  // LACP are those of `device`; with null those of the input. Throws Error.
  Answer to_openconfig(const std::string& native, const DeviceSnapshot* device, const ToOpenconfigOptions& options);

  // Translates an edit and applies it to the configuration of `device`, which stays as it is; to carry the plan out is
  // the caller's part. Throws Error as translate() does, and for what cannot be applied.
  EditPlan plan_edit(const std::string& request, const DeviceSnapshot& device, const TranslateOptions& options);

  // The same for the delete of the nodes that `paths` (as in GetOptions) lead to.
  EditPlan plan_delete(const std::vector<std::string>& paths, const DeviceSnapshot& device,
                       const TranslateOptions& options);

 private:
  struct Parts;
  EditPlan plan(ParsedRequest request, const DeviceSnapshot& device, const TranslateOptions& options);

  std::unique_ptr<Parts> parts_;
};

// The version of the host.
OCLACP_HOST_API const char* version();

}  // namespace oclacp::host
