#include "tests/support/locations.h"

namespace location {

const char* const kSources = OCLACP_SOURCES;
const char* const kSchemas = OCLACP_SOURCES "/yang";
const char* const kExamples = OCLACP_SOURCES "/examples";
const char* const kModule = OCLACP_MODULE;
const char* const kClockModule = OCLACP_CLOCK_MODULE;
const char* const kHostLibrary = OCLACP_HOST_LIBRARY;
const char* const kProgram = OCLACP_PROGRAM;
const char* const kSystemIdProgram = OCLACP_SYSTEM_ID_PROGRAM;

}  // namespace location
