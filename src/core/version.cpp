#include "core/frame.hpp"
#include "veks_core.h"

namespace {
constexpr VekLibraryVersion kVersion = {
    2, 0, 6, 39, {'m', '6', '\0', '\0'}, "veksm6", "v2.0 gold SP1", "Apr 22 2002",
};
} // namespace

VEK_EXPORT const VekLibraryVersion* veksGetLibVersion(void) { return &kVersion; }
