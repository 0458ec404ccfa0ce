#include "platform/fileFilter.h"

#include <vector>

#include "text/text.h"

namespace brasquelin {

namespace {

/// ".txt" and ".log" of "*.txt;*.log"; none when a pattern stands for anything else.
std::vector<std::string> extensionsOf(std::string_view patterns) {
    std::vector<std::string> extensions;
    for (const auto& part : split(patterns, ";")) {
        const std::string pattern = replaceAll(part, " ", "");
        if (!pattern.starts_with("*.") || pattern.find_first_of("*?[", 1) != std::string::npos) return {};
        extensions.push_back(pattern.substr(1));
    }
    return extensions;
}

}  // namespace

std::string fileFilter(std::string_view filter, std::string_view anyFile) {
    std::vector<std::string_view> parts = split(filter, "|");
    if (filter.empty()) parts = {"All files", "*.*"};
    if (parts.size() == 1) parts.push_back(parts.front());
    if (parts.size() % 2 != 0) parts.pop_back();
    std::string pairs;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool pattern = i % 2 != 0;
        const bool any = parts[i] == "*.*" || parts[i].empty();
        if (i > 0) pairs += '|';
        pairs += pattern && any ? anyFile : parts[i];
    }
    return pairs;
}

std::string inEitherCase(std::string_view pairs) {
    std::string patterns;
    bool pattern = false;
    bool set = false;  // within the brackets of a pattern
    while (!pairs.empty()) {
        const std::string_view character = firstCharacters(pairs, 1);
        pairs.remove_prefix(character.size());
        if (character == "|") pattern = !pattern;
        const bool opens = character == "[";
        const bool closes = character == "]";
        if (pattern && (opens || closes)) set = opens;
        const std::string lower = lowerCase(character);
        const std::string upper = upperCase(character);
        const bool letter = pattern && lower != upper;
        const std::string either = letter ? lower + upper : std::string(character);
        patterns += letter && !set ? "[" + either + "]" : either;
    }
    return patterns;
}

std::string withExtension(std::string path, std::string_view filter, std::size_t selectedPair) {
    const auto parts = split(filter, "|");
    for (std::size_t i = 1; i < parts.size(); i += 2) {
        for (const auto& extension : extensionsOf(parts[i])) {
            if (endsWithIgnoringCase(path, extension)) return path;
        }
    }
    const std::size_t position = 2 * selectedPair + 1;
    if (position >= parts.size()) return path;
    const auto extensions = extensionsOf(parts[position]);
    return extensions.size() == 1 ? path + extensions.front() : path;
}

}  // namespace brasquelin
