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
    FindingCode{"bad-header", Severity::error},          FindingCode{"bad-type", Severity::error},
    FindingCode{"end-of-file", Severity::error},         FindingCode{"file-access", Severity::error},
    FindingCode{"file-not-found", Severity::error},      FindingCode{"nesting-too-deep", Severity::error},
    FindingCode{"next-without-for", Severity::error},    FindingCode{"no-directory", Severity::error},
    FindingCode{"no-equals-sign", Severity::error},      FindingCode{"no-number", Severity::error},
    FindingCode{"out-of-range", Severity::error},        FindingCode{"overflow", Severity::error},
    FindingCode{"unknown-file", Severity::error},        FindingCode{"unknown-function", Severity::error},
    FindingCode{"unknown-variable", Severity::error},    FindingCode{"code-page", Severity::warning},
    FindingCode{"empty-loop", Severity::warning},        FindingCode{"endless-loop", Severity::warning},
    FindingCode{"extra-preset", Severity::warning},      FindingCode{"for-without-next", Severity::warning},
    FindingCode{"hidden-callable", Severity::warning},   FindingCode{"ignored-line", Severity::warning},
    FindingCode{"outside-sections", Severity::warning},  FindingCode{"repeated-attribute", Severity::warning},
    FindingCode{"unknown-reference", Severity::warning}, FindingCode{"unknown-section", Severity::warning},
    FindingCode{"unused-variable", Severity::warning},   FindingCode{"plugin-at-once", Severity::hint},
    FindingCode{"unquoted-path", Severity::hint},
};

}  // namespace brasquelin
