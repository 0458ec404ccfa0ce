#include "platform/codePages.h"

#include <iconv.h>

#include <cstdint>

#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Bytes of a single-byte code page as UTF-8; a byte that the page leaves undefined is the control of the same value.
class CodePage {
  public:
    explicit CodePage(const char* name) {
        const iconv_t converter = iconv_open("UTF-8", name);
        const bool known = reinterpret_cast<std::intptr_t>(converter) != -1;
        for (unsigned byte = 0; byte < 256; ++byte) {
            characters_[byte] = known ? character(converter, byte) : std::string();
            if (characters_[byte].empty()) appendUtf8(characters_[byte], byte);
        }
        if (known) iconv_close(converter);
    }

    std::string decode(std::string_view bytes) const {
        std::string text;
        text.reserve(bytes.size() + bytes.size() / 8);
        for (const char byte : bytes) text.append(characters_[static_cast<unsigned char>(byte)]);
        return text;
    }

  private:
    /// Empty for a byte that the page leaves undefined.
    static std::string character(iconv_t converter, unsigned byte) {
        char in = static_cast<char>(byte);
        char out[8];
        char* from = &in;
        char* to = out;
        std::size_t fromLeft = 1;
        std::size_t toLeft = sizeof out;
        iconv(converter, &from, &fromLeft, &to, &toLeft);
        return std::string(out, to);
    }

    std::string characters_[256];
};

std::string decode(std::string_view bytes, const CodePage& (*page)()) {
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    return isUtf8(bytes) ? std::string(bytes) : page().decode(bytes);
}

const CodePage& windows1252() {
    static const CodePage page("CP1252");
    return page;
}

const CodePage& codePage850() {
    static const CodePage page("CP850");
    return page;
}

}  // namespace

std::string decodeFile(std::string_view bytes) {
    return decode(bytes, windows1252);
}

std::string encodeFile(std::string_view text) {
    return std::string(text);
}

std::string decodeOem(std::string_view bytes) {
    return decode(bytes, codePage850);
}

std::string encodeOem(std::string_view text) {
    return std::string(text);
}

}  // namespace brasquelin
