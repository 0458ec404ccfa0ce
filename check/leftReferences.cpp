#include "check/leftReferences.h"

#include <algorithm>

namespace brasquelin {

namespace {

bool mayBeName(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '-' || c == '.' ||
               (c & '\x80') != 0;
    };
    return std::any_of(text.begin(), text.end(), isLetter) &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || isLetter(c); });
}

}  // namespace

std::vector<Reference> leftReferences(std::string_view text) {
    std::vector<Reference> found;
    auto opening = text.find('$');
    while (opening != std::string_view::npos) {
        const auto closing = text.find('$', opening + 1);
        if (closing == std::string_view::npos) break;
        const std::string_view name = text.substr(opening + 1, closing - opening - 1);
        const bool isName = mayBeName(name);
        if (isName) found.push_back({opening, name});
        opening = isName ? text.find('$', closing + 1) : closing;
    }
    return found;
}

}  // namespace brasquelin
