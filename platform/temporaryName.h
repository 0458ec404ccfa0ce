// How files that are on their way are named.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace brasquelin {

/// Every temporary file beside a target ends like this.
inline constexpr const char* temporaryEnding = ".brasquelin~";

inline bool continuesCodePoint(char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80;
}
inline bool continuesCodePoint(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Always the same for the same name and number, and for no other. A name that would be longer than `most` units is cut
/// between two code points, and a number that stands for the whole of it is put in.
template <typename Unit>
std::basic_string<Unit> temporaryName(const std::basic_string<Unit>& name, std::size_t number, std::size_t most) {
    using Text = std::basic_string<Unit>;
    std::string ending = number == 0 ? temporaryEnding : "." + std::to_string(number) + temporaryEnding;
    if (name.size() + ending.size() <= most) return name + Text(ending.begin(), ending.end());
    ending.insert(0, "." + std::to_string(std::hash<Text>()(name)));
    std::size_t size = most > ending.size() ? most - ending.size() : 0;
    while (size > 0 && continuesCodePoint(name[size])) --size;
    return name.substr(0, size) + Text(ending.begin(), ending.end());
}

}  // namespace brasquelin
