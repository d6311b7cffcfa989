// What a translator is made of, for the files that implement it.
#pragma once

#include <string>

#include "host/translation/mapping_module.h"
#include "host/translation/translator.h"
#include "host/trees/tree_context.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

struct Translator::Parts {
  Schemas schemas;
  TreeContext native;      // what the module adds for a request
  TreeContext openconfig;  // what it adds for native data
  MappingModule module;

  Parts(const SchemaDirectories& directories, const std::string& module_file)
      : schemas(directories), native(schemas.native()), openconfig(schemas.request()), module(module_file) {}
};

// The contract's operation code for a kind of request.
inline uint32_t operation_code(RequestKind kind) {
  switch (kind) {
    case RequestKind::kReadConfig:
      return YFW_REQUEST_READ_CONFIG;
    case RequestKind::kReadState:
      return YFW_REQUEST_READ_STATE;
    case RequestKind::kEdit:
      break;
  }
  return YFW_REQUEST_EDIT;
}

}  // namespace oclacp::host
