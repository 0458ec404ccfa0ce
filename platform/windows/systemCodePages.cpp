#include "platform/systemCodePages.h"

#include <windows.h>

#include "platform/codePages.h"
#include "platform/windows/wideText.h"
#include "text/text.h"

namespace brasquelin {

const Encoding newFileEncoding = Encoding::ansi;

std::string fromAnsi(std::string_view bytes) {
    return fromWide(wideFromPage(bytes, GetACP()));
}

std::string fromOem(std::string_view bytes) {
    return fromWide(wideFromPage(bytes, GetOEMCP()));
}

std::string toAnsi(std::string_view text) {
    return pageFromWide(toWide(text), GetACP());
}

std::string encodeOem(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    return pageFromWide(toWide(text), GetOEMCP());
}

std::string decodePrinted(std::string_view bytes) {
    return isAscii(bytes) ? std::string(bytes) : fromOem(bytes);
}

}  // namespace brasquelin
