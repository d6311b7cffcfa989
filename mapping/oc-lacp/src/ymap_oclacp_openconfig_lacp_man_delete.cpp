// Of the group openconfig_lacp_man; apart, as it alone talks to the data store.
//
// The deletion of LACP configuration. A request names an OpenConfig entry, while natively LACP is a container under
// each interface's configuration; so the data store is asked which interfaces hold one.
#include <unistd.h>

#include <cstring>

#include "frame/addition.h"
#include "frame/handler.h"
#include "frame/request.h"
#include "imc/imc.h"
#include "messages.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/openconfig_lacp.h"
#include "sysdb/sysdb.h"
#include "yfw/map.h"

using oclacp::kBundlemgrCfg;
using oclacp::kIfmgrCfg;
using ymap::Activation;
using ymap::Handler;

namespace {

// Whether the data-store client's library was found. A miss is not remembered: the next call looks again.
bool sysdb_library_found = false;

bool sysdb_library_present() {
  if (!sysdb_library_found) sysdb_library_found = access(SYSDB_LIBRARY_PATH, R_OK) == 0;
  return sysdb_library_found;
}

// The data store's answer: the interfaces that hold LACP configuration. Releasing is explicit, because a failed
// addition leaves the list and the connection open.
class LacpInterfaces {
 public:
  explicit LacpInterfaces(const Activation& run) : run_(run) {}

  // Binds and finds, and records what fails.
  cerrno find() {
    const cerrno bound = sysdb_library_present() ? _sysdb_bind(&connection_, SYSDB_ACTIVE_INTERFACES, SYSDB_BIND_FLAGS)
                                                 : SYSDB_LIBRARY_MISSING;
    if (bound != YFW_OK) return failed(oclacp::message::kBindFailed, bound);
    is_bound_ = true;
    const cerrno found = sysdb_find(connection_, ".*/lacp/", "", &count_, &list_, SYSDB_FIND_FLAGS, 0);
    return found == YFW_OK ? YFW_OK : failed(oclacp::message::kFindFailed, found);
  }

  // The next interface by its data-store name, the first element of the item's path; null when the path has none.
  cerrno next(const char** name) {
    char* path = nullptr;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const cerrno status = sysdb_list_next(list_, &path, &type, &size);
    if (status != YFW_OK) {
      run_.record(oclacp::message::kIterationFailed, cerr_strerror(status));
      return status;
    }
    *name = path != nullptr ? std::strtok(path, "/") : nullptr;
    return YFW_OK;
  }

  void release() {
    if (list_ != nullptr) static_cast<void>(sysdb_list_free(list_));
    if (is_bound_ && sysdb_library_present()) static_cast<void>(_sysdb_unbind(connection_));
  }

  [[nodiscard]] std::uint32_t count() const { return count_; }

 private:
  // Both failures name the path that was bound.
  cerrno failed(ymap::MessageWith<2> message, cerrno status) const {
    run_.record(message, SYSDB_ACTIVE_INTERFACES, cerr_strerror(status));
    return status;
  }

  const Activation& run_;
  sysdb_handle connection_ = nullptr;
  sysdb_list_handle list_ = nullptr;
  std::uint32_t count_ = UINT32_MAX;
  bool is_bound_ = false;
};

class Deletion {
 public:
  Deletion(const Activation& run, yfw_map_ctx ctx, yfw_datatree& node, yfw_datatree* out)
      : run_(run), ctx_(ctx), node_(node), out_(out), interfaces_(run) {}

  ymap::Outcome carry_out() {
    one_entry_ = yfw_map_do_these_match(node_.tag, "interface") != 0;
    cerrno status = interfaces_.find();
    if (status == YFW_OK) status = delete_interfaces();
    if (addition_failed_) {
      run_.record(oclacp::message::kEndOfFailedAddition);
      return ymap::Outcome::without_end(status);
    }
    const cerrno answer = conclude(status);
    interfaces_.release();
    return answer;
  }

 private:
  cerrno delete_interfaces() {
    std::uint32_t& done = ctx_->request->deletion_done;
    done = 0;
    for (std::uint32_t i = 0; i < interfaces_.count() && !found_; ++i) {
      const char* name = nullptr;
      if (const cerrno status = interfaces_.next(&name); status != YFW_OK) return status;
      if (name == nullptr || !takes(name)) continue;
      if (const cerrno status = delete_lacp(name); status != YFW_OK) {
        addition_failed_ = true;
        return status;
      }
    }
    done = 1;
    return YFW_OK;
  }

  // A delete of one entry takes the first interface whose data-store name occurs in the entry's name: intentionally a
  // substring test. A delete of all of /lacp takes every interface.
  bool takes(const char* data_store_name) {
    if (!one_entry_) return true;
    const bool has_key = ymap::child_count_of(node_).value_or(0) != 0;
    const char* const entry_name = has_key ? node_.children[0].value : nullptr;
    found_ = entry_name != nullptr && std::strstr(entry_name, data_store_name) != nullptr;
    return found_;
  }

  // Names the interface's entry and deletes the container below it.
  cerrno delete_lacp(const char* data_store_name) {
    // A name that cannot be had is not an error.
    static_cast<void>(imc_display_namestring(data_store_name, display_name_, sizeof display_name_, 0));
    ymap::change_operation(node_, YFW_OPERATION_NONE);
    cerrno status = add(oclacp::kInterfaceConfigurationEntry, kIfmgrCfg, nullptr, 1, 0);
    if (status == YFW_OK) status = add(oclacp::kInterfaceActive, kIfmgrCfg, oclacp::kActiveClass, 0, 0);
    if (status == YFW_OK) status = add(oclacp::kInterfaceName, kIfmgrCfg, display_name_, 0, 0);
    if (status != YFW_OK) return status;
    ymap::change_operation(node_, YFW_OPERATION_REMOVE);
    return add(oclacp::kInterfaceLacp, kBundlemgrCfg, nullptr, 0, 1);
  }

  cerrno add(const char* path, const char* ns, const char* value, int list_flag, int last_flag) {
    return ymap::add(
        ctx_, out_,
        {.path = path, .ns = ns, .value = value, .source = &node_, .list_flag = list_flag, .last_flag = last_flag});
  }

  cerrno conclude(cerrno status) {
    if (!one_entry_ || (found_ && interfaces_.count() != 0)) return YFW_SKIP_SUBTREE;
    if (ctx_->request->replace_restore != 0) return YFW_SKIP_SUBTREE;
    if (node_.operation == YFW_OPERATION_REMOVE) return YFW_OK;
    if (node_.operation != YFW_OPERATION_DELETE) return status;
    yfw_oc_error_path(ctx_);
    return YFW_NOTHING_TO_DELETE;
  }

  const Activation& run_;
  yfw_map_ctx ctx_;
  yfw_datatree& node_;
  yfw_datatree* out_;
  LacpInterfaces interfaces_;
  char display_name_[64] = {};
  bool one_entry_ = false;
  bool found_ = false;
  bool addition_failed_ = false;
};

cerrno delete_interface_lacp(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) {
    return Deletion(run, ctx, ymap::mutable_node(in), out).carry_out();
  });
}

cerrno delete_global(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&] {
    return ymap::add(ctx, out, {.path = oclacp::kLacpSystemPriority, .ns = kBundlemgrCfg, .source = in});
  });
}

cerrno delete_all(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&] {
    if (yfw_map_do_these_match(in->tag, "lacp") != 0) static_cast<void>(delete_global_lacp(ctx, in, out));
    return oclacp_to_qd_bundle_lacp_config_delete(ctx, in, out);
  });
}

}  // namespace

YMAP_DEFINE_SIMPLE_HANDLER(oc_to_qd_all_lacp_cfg_delete, delete_all)
YMAP_DEFINE_SIMPLE_HANDLER(delete_global_lacp, delete_global)
YMAP_DEFINE_SIMPLE_HANDLER(oclacp_to_qd_bundle_lacp_config_delete, delete_interface_lacp)
