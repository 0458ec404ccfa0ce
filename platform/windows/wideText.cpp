#include "platform/windows/wideText.h"

#include <windows.h>

#include <limits>

#include "text/runTimeError.h"

namespace brasquelin {

namespace {

// The system counts in int.
int systemLength(std::size_t length) {
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw RunTimeError(ErrorNumber::overflow);
    return static_cast<int>(length);
}

}  // namespace

std::wstring wideFromPage(std::string_view bytes, unsigned page) {
    if (bytes.empty()) return {};
    const int length = systemLength(bytes.size());
    std::wstring wide;
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(page, 0, bytes.data(), length, nullptr, 0)));
    MultiByteToWideChar(page, 0, bytes.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string pageFromWide(std::wstring_view text, unsigned page) {
    if (text.empty()) return {};
    const int length = systemLength(text.size());
    std::string bytes;
    const int needed = WideCharToMultiByte(page, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(needed));
    WideCharToMultiByte(page, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring toWide(std::string_view text) {
    return wideFromPage(text, CP_UTF8);
}

std::string fromWide(std::wstring_view text) {
    return pageFromWide(text, CP_UTF8);
}

}  // namespace brasquelin
