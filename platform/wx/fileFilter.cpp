#include "platform/wx/fileFilter.h"

#include <vector>

#include "text/text.h"

namespace brasquelin {

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

std::string extensionOfFilter(std::string_view filter, std::size_t index) {
    const auto parts = split(filter, "|");
    const std::size_t position = 2 * index + 1;
    if (position >= parts.size() || !parts[position].starts_with("*.")) return {};
    const std::string_view extension = parts[position].substr(1);
    return extension.find_first_of("*?;", 1) == std::string_view::npos ? std::string(extension) : std::string();
}

}  // namespace brasquelin
