// Status codes as text.
#include "host/base/contract.h"
#include "host/base/status_text.h"

const char* cerr_strerror(cerrno status) {
  return oclacp::host::status_text(status);
}
