#include "platform/systemCodePages.h"

#include <iconv.h>

#include <cstdint>
#include <map>

#include "platform/codePages.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// Bytes of a single-byte code page as UTF-8; a byte that the page leaves undefined is the control of the same value.
class CodePage {
  public:
    explicit CodePage(const char* name) {
        const iconv_t converter = iconv_open("UTF-8", name);
        const bool known = reinterpret_cast<std::intptr_t>(converter) != -1;
        for (unsigned byte = 0; byte < 256; ++byte) {
            characters_[byte] = known ? character(converter, byte) : std::string();
            if (characters_[byte].empty()) appendUtf8(characters_[byte], byte);
            bytes_.emplace(characters_[byte], static_cast<char>(byte));
        }
        if (known) iconv_close(converter);
    }

    std::string decode(std::string_view bytes) const {
        std::string text;
        text.reserve(bytes.size() + bytes.size() / 8);
        for (const char byte : bytes) text.append(characters_[static_cast<unsigned char>(byte)]);
        return text;
    }

    std::string encode(std::string_view text) const {
        std::string bytes;
        for (; !text.empty(); text.remove_prefix(firstCharacters(text, 1).size())) {
            const auto known = bytes_.find(firstCharacters(text, 1));
            bytes += known == bytes_.end() ? '?' : known->second;
        }
        return bytes;
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
    std::map<std::string, char, std::less<>> bytes_;
};

const CodePage& windows1252() {
    static const CodePage page("CP1252");
    return page;
}

const CodePage& codePage850() {
    static const CodePage page("CP850");
    return page;
}

}  // namespace

const Encoding newFileEncoding = Encoding::utf8;

std::string fromAnsi(std::string_view bytes) {
    return windows1252().decode(bytes);
}

std::string fromOem(std::string_view bytes) {
    return codePage850().decode(bytes);
}

std::string toAnsi(std::string_view text) {
    return windows1252().encode(text);
}

std::string encodeOem(std::string_view text) {
    return std::string(text);
}

std::string decodePrinted(std::string_view bytes) {
    return std::string(bytes);
}

}  // namespace brasquelin
