#include "platform/fileAddress.h"

#include <charconv>

#include "platform/paths.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// The byte that two hexadecimal digits at the start spell; 0 when there are none.
char escapedByte(std::string_view digits) {
    unsigned value = 0;
    if (digits.size() < 2) return 0;
    const auto result = std::from_chars(digits.data(), digits.data() + 2, value, 16);
    return result.ptr == digits.data() + 2 ? static_cast<char>(value) : '\0';
}

/// What is no escape, or one of a NUL, stays.
std::string percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char byte = text[i] == '%' ? escapedByte(text.substr(i + 1)) : '\0';
        decoded += byte == '\0' ? text[i] : byte;
        if (byte != '\0') i += 2;
    }
    return decoded;
}

}  // namespace

std::string pathOfAddress(std::string_view text) {
    constexpr std::string_view scheme = "file://";
    constexpr std::string_view host = "localhost";
    if (!startsWithIgnoringCase(text, scheme)) return std::string(text);
    std::string_view place = text.substr(scheme.size());
    if (startsWithIgnoringCase(place, host)) place.remove_prefix(host.size());
    if (!place.starts_with('/')) return std::string(text);
    std::string path = percentDecoded(place);
    if (pathSeparator == '/') return path;
    const bool drive = path.size() > 2 && path[2] == ':';  // "/C:/x"
    return replaceAll(drive ? path.substr(1) : path, "/", "\\");
}

}  // namespace brasquelin
