#include "check/findings.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "platform/textFiles.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::array<std::string_view, 3> severityNames{"error", "warning", "hint"};
constexpr std::array<std::string_view, 3> severityColours{"\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m"};
constexpr std::string_view bold = "\x1b[1m";
constexpr std::string_view plain = "\x1b[0m";

/// Tabs are kept, so that the caret stands where the eye expects it.
std::string caretBelow(std::string_view line, int column) {
    std::string indent(firstCharacters(line, static_cast<std::size_t>(column) - 1));
    std::string blanks;
    for (const char c : indent) {
        const bool continues = (c & '\xC0') == '\x80';  // a further byte of a character
        if (!continues) blanks += c == '\t' ? '\t' : ' ';
    }
    return blanks + "^";
}

std::string place(const Finding& finding) {
    return finding.path + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column) + ": ";
}

std::string decoratedText(const Finding& finding) {
    const auto colour = severityColours[static_cast<std::size_t>(finding.severity)];
    std::string text = std::string(bold) + place(finding) + std::string(plain) + std::string(colour);
    text +=
        std::string(nameOf(finding.severity)) + ": " + std::string(plain) + finding.text + " [" + finding.code + "]\n";
    const std::string line = lineOfFile(finding.path, finding.line);
    if (line.empty()) return text;
    return text + line + "\n" + std::string(colour) + caretBelow(line, finding.column) + std::string(plain) + "\n";
}

std::size_t countOf(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<std::size_t>(std::count_if(
        findings.begin(), findings.end(), [severity](const Finding& each) { return each.severity == severity; }));
}

}  // namespace

std::string_view nameOf(Severity severity) {
    return severityNames[static_cast<std::size_t>(severity)];
}

std::string asText(const std::vector<Finding>& findings, bool decorated) {
    std::string text;
    for (const auto& finding : findings) {
        if (decorated) {
            text += decoratedText(finding);
        } else {
            text += place(finding) + std::string(nameOf(finding.severity)) + ": " + finding.text;
            text += " [" + finding.code + "]\n";
        }
    }
    return text;
}

std::string asJson(const std::vector<Finding>& findings) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& each : findings) {
        list.push_back({{"file", each.path},
                        {"line", each.line},
                        {"column", each.column},
                        {"severity", nameOf(each.severity)},
                        {"code", each.code},
                        {"text", each.text}});
    }
    const nlohmann::ordered_json all{{"version", 1},
                                     {"findings", std::move(list)},
                                     {"errors", countOf(findings, Severity::error)},
                                     {"warnings", countOf(findings, Severity::warning)},
                                     {"hints", countOf(findings, Severity::hint)}};
    constexpr int indent = 2;
    return all.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

bool holdsError(const std::vector<Finding>& findings) {
    return countOf(findings, Severity::error) > 0;
}

}  // namespace brasquelin
