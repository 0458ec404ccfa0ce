#include "platform/codePages.h"

#include <windows.h>

#include "platform/windows/wideText.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string decode(std::string_view bytes, unsigned page) {
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
        page = CP_UTF8;
    }
    if (isAscii(bytes)) return std::string(bytes);
    return fromWide(wideFromPage(bytes, page));
}

}  // namespace

std::string decodeFile(std::string_view bytes) {
    return decode(bytes, GetACP());
}

std::string encodeFile(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    const std::wstring wide = toWide(text);
    const unsigned page = GetACP();
    if (pageHolds(wide, page)) {
        std::string bytes = pageFromWide(wide, page);
        // Characters whose bytes happen to be the mark would be taken for it.
        if (!bytes.starts_with(byteOrderMark)) return bytes;
    }
    return std::string(byteOrderMark).append(text);
}

std::string decodeOem(std::string_view bytes) {
    return decode(bytes, GetOEMCP());
}

std::string encodeOem(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    return pageFromWide(toWide(text), GetOEMCP());
}

}  // namespace brasquelin
