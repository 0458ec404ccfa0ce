// What a check has found, and how it is told.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

enum class Severity { error, warning, hint };
std::string_view nameOf(Severity severity);

/// Line and column count from 1, columns in characters.
struct Finding {
    std::string path;
    int line = 1;
    int column = 1;
    Severity severity = Severity::error;
    std::string code;
    std::string text;  // on one line
    bool operator==(const Finding&) const = default;
};

/// "file:line:column: error: text [code]", each on a line of its own. `decorated` is for a terminal: colours, and
/// below each the line that it is about with a caret.
std::string asText(const std::vector<Finding>& findings, bool decorated);

/// {"version": 1, "findings": [{"file", "line", "column", "severity", "code", "text"}], "errors", "warnings", "hints"}
std::string asJson(const std::vector<Finding>& findings);

bool holdsError(const std::vector<Finding>& findings);

}  // namespace brasquelin
