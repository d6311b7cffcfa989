#include "host/yang/schemas.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/base/error.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOperationModule = "ietf-netconf";
constexpr const char* kPlatformModule = "oclacp-platform";

void require_directory(const std::string& directory) {
  if (!fs::is_directory(directory)) {
    throw file_error(ErrorKind::kOperationFailed, directory, "no such folder of schemas");
  }
}

ContextPtr make_context(const std::string& directory) {
  require_directory(directory);
  // Complaints are kept for last_libyang_error() and printed nowhere else.
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* context = nullptr;
  if (ly_ctx_new(directory.c_str(), LY_CTX_NO_YANGLIBRARY | LY_CTX_DISABLE_SEARCHDIR_CWD, &context) != LY_SUCCESS) {
    throw file_error(ErrorKind::kOperationFailed, directory, "the schemas cannot be read");
  }
  return ContextPtr(context);
}

void search_in(ly_ctx* context, const std::vector<std::string>& directories) {
  ly_ctx_unset_searchdir(context, nullptr);
  for (const std::string& directory : directories) {
    require_directory(directory);
    ly_ctx_set_searchdir(context, directory.c_str());
  }
}

// The text in quotes after `begin`, with which a message begins; empty for another message.
std::string quoted_in(std::string_view message, std::string_view begin) {
  if (!message.starts_with(begin)) {
    return {};
  }
  message.remove_prefix(begin.size());
  return std::string(message.substr(0, message.find('"')));
}

// The file of a module, "a.yang" or "a@2024-01-31.yang"; the folder when there is none.
std::string find_file(const std::string& directory, const std::string& module) {
  std::error_code trouble;
  for (const auto& entry : std::filesystem::directory_iterator(directory, trouble)) {
    const std::string name = entry.path().filename();
    if (name == module + ".yang" || (name.starts_with(module + "@") && name.ends_with(".yang"))) {
      return entry.path();
    }
  }
  return directory;
}

// libyang tells the cause first, and then which modules could not be read because of it, the innermost first.
[[noreturn]] void refuse(const ly_ctx* context, const std::string& directory, const std::string& module,
                         const std::string& needed_by) {
  const LibyangError cause = first_libyang_error(context);
  std::string unread;
  for (const ly_err_item* item = ly_err_first(context); item != nullptr && unread.empty(); item = item->next) {
    unread = quoted_in(item->msg, "Parsing module \"");
  }
  const std::string missing = quoted_in(cause.reason, "Data model \"");
  if (!missing.empty() && unread.empty()) {
    throw needed_by.empty() ? file_error(ErrorKind::kOperationFailed, directory, "has no module " + missing)
                            : file_error(ErrorKind::kOperationFailed, needed_by,
                                         "names module " + missing + ", which " + directory + " does not have");
  }
  if (unread.empty()) {
    throw Error(ErrorKind::kOperationFailed,
                cause.sentence("module " + module + (needed_by.empty() ? "" : ", which " + needed_by + " names")),
                {.path = cause.path, .file = {}});
  }
  const std::string file = find_file(directory, unread);
  const std::string reason =
      missing.empty() ? cause.reason : "imports module " + missing + ", which " + directory + " does not have";
  throw Error(ErrorKind::kOperationFailed,
              file + (cause.line == 0 ? "" : " (line " + std::to_string(cause.line) + ")") + ": module " + unread +
                  ": " + reason,
              {.path = {}, .file = file, .line = cause.line});
}

// `directories`: where it is searched. `needed_by`: who names the module; empty for the host and its user.
void load(ly_ctx* context, const std::vector<std::string>& directories, const SchemaModule& module,
          const std::string& needed_by) {
  std::vector<const char*> features;
  for (const std::string& feature : module.features) {
    features.push_back(feature.c_str());
  }
  features.push_back(nullptr);
  ly_log_options(LY_LOSTORE);
  const lys_module* loaded = ly_ctx_load_module(context, module.name.c_str(), nullptr, features.data());
  ly_log_options(LY_LOSTORE_LAST);
  if (loaded == nullptr) {
    refuse(context, directories.empty() ? needed_by : directories.front(), module.name, needed_by);
  }
  ly_err_clean(context, nullptr);
}

// Whether a folder has the files of a mapping's published models, with or without revisions in their names.
bool has_published(const std::string& directory, const MappedSchemas& mapped) {
  return std::all_of(mapped.published.begin(), mapped.published.end(), [&](const SchemaModule& module) {
    const fs::directory_iterator files(directory);
    return std::any_of(begin(files), end(files), [&](const fs::directory_entry& entry) {
      const std::string name = entry.path().stem();
      return entry.path().extension() == ".yang" && (name == module.name || name.starts_with(module.name + "@"));
    });
  });
}

}  // namespace

ContextPtr make_schema_context(const std::string& directory, const std::vector<SchemaModule>& modules) {
  ContextPtr context = make_context(directory);
  for (const SchemaModule& module : modules) {
    load(context.get(), {directory}, module, "");
  }
  return context;
}

Schemas::Schemas(const SchemaDirectories& directories, const std::vector<MappedSchemas>& mapped)
    : request_(make_schema_context(directories.shipped, {{kOperationModule}})),
      native_(make_schema_context(directories.shipped, {{kOperationModule}, {kPlatformModule}})) {
  const std::string& published = directories.published;
  if (!published.empty()) {
    require_directory(published);
  }
  const bool none_has = std::none_of(mapped.begin(), mapped.end(), [&](const MappedSchemas& one) {
    return !published.empty() && has_published(published, one);
  });
  for (const MappedSchemas& one : mapped) {
    const bool is_published = !published.empty() && (none_has || has_published(published, one));
    const std::vector<std::string> searched = is_published ? std::vector{published} : one.directories;
    search_in(request_.get(), searched);
    for (const SchemaModule& module : one.published) {
      load(request_.get(), searched, module, is_published ? "" : one.needed_by);
    }
    search_in(native_.get(), one.directories);
    for (const SchemaModule& module : one.native) {
      load(native_.get(), one.directories, module, one.needed_by);
    }
  }
}

const lys_module* operation_module(const ly_ctx* context) {
  return ly_ctx_get_module_implemented(context, kOperationModule);
}

}  // namespace oclacp::host
