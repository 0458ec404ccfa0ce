// The codes of findings. They are told to users and programs, so they stay as they are.
#pragma once

#include <array>
#include <string_view>

#include "check/findings.h"

namespace brasquelin {

struct FindingCode {
    std::string_view name;
    Severity severity;
};

inline constexpr std::array findingCodes{
    FindingCode{"bad-header", Severity::error},       FindingCode{"bad-type", Severity::error},
    FindingCode{"end-of-file", Severity::error},      FindingCode{"file-access", Severity::error},
    FindingCode{"file-not-found", Severity::error},   FindingCode{"nesting-too-deep", Severity::error},
    FindingCode{"next-without-for", Severity::error}, FindingCode{"no-directory", Severity::error},
    FindingCode{"no-equals-sign", Severity::error},   FindingCode{"no-number", Severity::error},
    FindingCode{"out-of-range", Severity::error},     FindingCode{"overflow", Severity::error},
    FindingCode{"unknown-file", Severity::error},     FindingCode{"unknown-function", Severity::error},
    FindingCode{"unknown-variable", Severity::error},
};

}  // namespace brasquelin
