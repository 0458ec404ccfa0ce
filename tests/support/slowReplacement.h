// The rule of replacement, word for word: what the fast one is compared with.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace brasquelin {

/// Every "$" + name + "$" replaced by the value, in any letter case, one character after another.
inline std::string replacedSlowly(std::string_view name, std::string_view value, std::string_view text) {
    const std::string wanted = lowerCase("$" + std::string(name) + "$");
    if (lowerCase(text).find(wanted) == std::string::npos) return std::string(text);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const auto head = text.substr(at);
        const auto candidate = firstCharacters(head, characterCount(wanted));
        const bool found = lowerCase(candidate) == wanted;
        const auto first = firstCharacters(head, 1);
        result += found ? value : first;
        at += found ? candidate.size() : first.size();
    }
    return result;
}

}  // namespace brasquelin
