// The messages of this module beyond those of the frame.
#pragma once

#include "frame/message.h"

namespace oclacp::message {

using ymap::kFirstModuleCallSite;

// clang-format off
inline constexpr ymap::Message kInterfaceNameMissing =
    YMAP_ERROR_MESSAGE(kFirstModuleCallSite + 0, "Data interface name does not exists");
inline constexpr ymap::Message kBindFailed =
    YMAP_ERROR_MESSAGE(kFirstModuleCallSite + 1, "Unable to bind to Sysdb: path:%s, error:%s");
inline constexpr ymap::Message kFindFailed =
    YMAP_ERROR_MESSAGE(kFirstModuleCallSite + 2, "Unable to find items in Sysdb: path:%s, error:%s");
inline constexpr ymap::Message kIterationFailed =
    YMAP_ERROR_MESSAGE(kFirstModuleCallSite + 3, "Unable to iterate the sysdb list: error:%s");
inline constexpr ymap::Message kIntervalRefused =
    YMAP_ERROR_MESSAGE(kFirstModuleCallSite + 4,
                       "\nValue of interval other than 1s and 30s is not supported in high model");
// The second form of a failed copy, with two blanks
inline constexpr ymap::Message kIntervalCopyFailed =
    YMAP_TRACE_MESSAGE(kFirstModuleCallSite + 5, " %s  yfw_strcpy_s failed with error : %s\n");
// Intentionally at the trace level
inline constexpr ymap::Message kBundleNameMissing =
    YMAP_TRACE_MESSAGE(kFirstModuleCallSite + 6, " %s Unable to get bundle name from lacp-bundle tree : %s\n");
inline constexpr ymap::Message kBundleNameFailed =
    YMAP_TRACE_MESSAGE(kFirstModuleCallSite + 7, "%s: Unable to get bundle name. Returning from here. rc %s\n");
inline constexpr ymap::Message kModeIsOn =
    YMAP_TRACE_MESSAGE(kFirstModuleCallSite + 8, "%s: Configured LACP Mode is ON. Returning from here\n");
// Second places of a handler that records the same twice: the comparison of a mode after that with "on", and the end
// of a deletion whose addition failed
inline constexpr ymap::Message kSecondCompareFailed =
    ymap::at_another_place(ymap::message::kCompareFailed, kFirstModuleCallSite + 9);
inline constexpr ymap::Message kEndOfFailedAddition =
    ymap::at_another_place(ymap::message::kEnd, kFirstModuleCallSite + 10);
// clang-format on

static_assert(kEndOfFailedAddition.call_site < ymap::kCallSites);

}  // namespace oclacp::message
