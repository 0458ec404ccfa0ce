#include "platform/codePages.h"

#include "platform/systemCodePages.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16LittleMark = "\xFF\xFE";
constexpr std::string_view utf16BigMark = "\xFE\xFF";

/// UTF-16 bytes behind their mark, unit by unit.
class Utf16Reader {
  public:
    Utf16Reader(std::string_view bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}

    bool atEnd() const { return position_ >= bytes_.size(); }

    /// A surrogate without its other half, or half a unit at the end, is the replacement character.
    char32_t nextCodePoint() {
        constexpr char32_t replacement = 0xFFFD;
        if (position_ + 1 == bytes_.size()) return ++position_, replacement;
        const char32_t unit = nextUnit();
        if (unit < 0xD800 || unit > 0xDFFF) return unit;
        if (unit > 0xDBFF || position_ + 2 > bytes_.size()) return replacement;
        const char32_t second = nextUnit();
        if (second >= 0xDC00 && second <= 0xDFFF) return 0x10000 + ((unit - 0xD800) << 10U) + (second - 0xDC00);
        position_ -= 2;
        return replacement;
    }

  private:
    char32_t nextUnit() {
        const char32_t first = static_cast<unsigned char>(bytes_[position_]);
        const char32_t second = static_cast<unsigned char>(bytes_[position_ + 1]);
        position_ += 2;
        return bigEndian_ ? (first << 8U) | second : (second << 8U) | first;
    }

    std::string_view bytes_;
    bool bigEndian_;
    std::size_t position_ = 0;
};

std::string decodeUtf16(std::string_view bytes) {
    Utf16Reader reader(bytes.substr(utf16BigMark.size()), bytes.starts_with(utf16BigMark));
    std::string text;
    text.reserve(bytes.size());
    while (!reader.atEnd()) appendUtf8(text, reader.nextCodePoint());
    return text;
}

bool isUtf16(std::string_view bytes) {
    return bytes.starts_with(utf16LittleMark) || bytes.starts_with(utf16BigMark);
}

std::string decode(std::string_view bytes, std::string (*fromPage)(std::string_view)) {
    if (isUtf16(bytes)) return decodeUtf16(bytes);
    if (bytes.starts_with(utf8Mark)) bytes.remove_prefix(utf8Mark.size());
    return isUtf8(bytes) ? std::string(bytes) : fromPage(bytes);
}

}  // namespace

std::string decodeFile(std::string_view bytes) {
    return decode(bytes, fromAnsi);
}

Encoding encodingOf(std::string_view bytes) {
    if (bytes.starts_with(utf8Mark) || isUtf16(bytes)) return Encoding::utf8WithMark;
    if (isAscii(bytes)) return newFileEncoding;
    return isUtf8(bytes) ? Encoding::utf8 : Encoding::ansi;
}

std::string encodeFile(std::string_view text, Encoding encoding) {
    if (encoding != Encoding::utf8WithMark) {
        std::string bytes = encoding == Encoding::ansi && !isAscii(text) ? toAnsi(text) : std::string(text);
        if (decodeFile(bytes) == text) return bytes;
    }
    return std::string(utf8Mark).append(text);
}

std::string decodeOem(std::string_view bytes) {
    return decode(bytes, fromOem);
}

}  // namespace brasquelin
