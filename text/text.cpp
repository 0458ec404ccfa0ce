#include "text/text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "text/caseTable.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

char asciiLowerCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool isAscii(char one, char other) {
    return static_cast<unsigned char>(one | other) < 0x80;
}

/// The code point at `position`, which moves behind it. A stray byte stands for itself, out of Unicode's range.
char32_t nextCodePoint(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (following == 0) return 0x110000U + lead;
    char32_t codePoint = lead & (0x3FU >> following);
    for (int i = 0; i < following && position < text.size() && isContinuation(text[position]); ++i) {
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(text[position++]) & 0x3FU);
    }
    return codePoint;
}

/// The byte at which code point number `count` (from 0) starts.
std::size_t byteOf(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    while (position < text.size() && count > 0) {
        ++position;
        while (position < text.size() && isContinuation(text[position])) ++position;
        --count;
    }
    return position;
}

std::size_t byteFromEnd(std::string_view text, std::size_t count) {
    std::size_t position = text.size();
    while (position > 0 && count > 0) {
        --position;
        while (position > 0 && isContinuation(text[position])) --position;
        --count;
    }
    return position;
}

/// The end of `prefix` in `text` when the text starts with it in any letter case at `start`, else npos.
std::size_t matchIgnoringCase(std::string_view text, std::size_t start, std::string_view prefix) {
    std::size_t at = start;
    std::size_t i = 0;
    while (i < prefix.size()) {
        if (at >= text.size()) return std::string_view::npos;
        if (isAscii(text[at], prefix[i])) {
            if (asciiLowerCase(text[at++]) != asciiLowerCase(prefix[i++])) return std::string_view::npos;
            continue;
        }
        if (lowerCase(nextCodePoint(text, at)) != lowerCase(nextCodePoint(prefix, i))) return std::string_view::npos;
    }
    return at;
}

char32_t upperCase(char32_t codePoint) {
    if (codePoint < 0x80) return codePoint >= 'a' && codePoint <= 'z' ? codePoint - ('a' - 'A') : codePoint;
    for (const CaseRange& range : caseRanges) {
        const auto upper = static_cast<char32_t>(static_cast<int>(codePoint) - range.distance);
        if (upper >= range.first && upper <= range.last && (upper - range.first) % range.step == 0) return upper;
    }
    return codePoint;
}

/// What is no well-formed UTF-8 stays.
template <typename Mapping>
std::string mapCase(std::string_view text, Mapping mapped) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        const char32_t codePoint = nextCodePoint(text, i);
        const char32_t other = mapped(codePoint);
        if (other == codePoint) {
            result.append(text.substr(start, i - start));
        } else {
            appendUtf8(result, other);
        }
    }
    return result;
}

std::string_view trimmedBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Of any size.
bool isWholeNumber(std::string_view text) {
    text = trimmedBlanks(text);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char b) { return !isContinuation(b); }));
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    return text.substr(0, byteOf(text, count));
}

std::string_view lastCharacters(std::string_view text, std::size_t count) {
    return text.substr(byteFromEnd(text, count));
}

std::string_view fromCharacter(std::string_view text, std::size_t position) {
    return text.substr(byteOf(text, position > 0 ? position - 1 : 0));
}

std::string_view withoutLast(std::string_view text, std::size_t count) {
    return text.substr(0, byteFromEnd(text, count));
}

char32_t lowerCase(char32_t codePoint) {
    if (codePoint < 0x80) return static_cast<unsigned char>(asciiLowerCase(static_cast<char>(codePoint)));
    const auto* range = std::lower_bound(std::begin(caseRanges), std::end(caseRanges), codePoint,
                                         [](const CaseRange& r, char32_t c) { return r.last < c; });
    if (range == std::end(caseRanges) || codePoint < range->first) return codePoint;
    if ((codePoint - range->first) % range->step != 0) return codePoint;
    return static_cast<char32_t>(static_cast<int>(codePoint) + range->distance);
}

std::string lowerCase(std::string_view text) {
    return mapCase(text, [](char32_t each) { return lowerCase(each); });
}

std::string upperCase(std::string_view text) {
    return mapCase(text, [](char32_t each) { return upperCase(each); });
}

bool isAscii(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::uint64_t eight = 0;
    while (text.size() >= sizeof eight) {
        std::memcpy(&eight, text.data(), sizeof eight);
        if ((eight & highBits) != 0) return false;
        text.remove_prefix(sizeof eight);
    }
    return std::all_of(text.begin(), text.end(), [](char b) { return static_cast<unsigned char>(b) < 0x80; });
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    if (left == right) return true;
    if (left.empty() || right.empty()) return false;
    if (isAscii(left[0], right[0]) && asciiLowerCase(left[0]) != asciiLowerCase(right[0])) return false;
    if (left.size() == right.size()) {
        std::size_t i = 0;
        while (i < left.size() && isAscii(left[i], right[i])) {
            if (asciiLowerCase(left[i]) != asciiLowerCase(right[i])) return false;
            ++i;
        }
        if (i == left.size()) return true;
    }
    return matchIgnoringCase(left, 0, right) == left.size();
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return matchIgnoringCase(text, 0, prefix) != std::string_view::npos;
}

bool endsWithIgnoringCase(std::string_view text, std::string_view suffix) {
    if (text.ends_with(suffix)) return true;
    if (text.empty() || suffix.empty()) return false;
    const bool differs = asciiLowerCase(text.back()) != asciiLowerCase(suffix.back());
    if (differs && isAscii(text.back(), suffix.back())) return false;
    return equalIgnoringCase(lastCharacters(text, characterCount(suffix)), suffix);
}

TextMatch findIgnoringCase(std::string_view text, std::string_view what, std::size_t from) {
    if (what.empty()) return {};
    const char first = asciiLowerCase(what.front());
    const bool asciiFirst = static_cast<unsigned char>(first) < 0x80;
    for (std::size_t begin = from; begin < text.size(); ++begin) {
        if (isContinuation(text[begin])) continue;
        if (asciiFirst && asciiLowerCase(text[begin]) != first) continue;
        const std::size_t end = matchIgnoringCase(text, begin, what);
        if (end != std::string_view::npos) return {begin, end};
    }
    return {};
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const auto at = text.find(separator);
        pieces.push_back(text.substr(0, at));
        if (at == std::string_view::npos) return pieces;
        text.remove_prefix(at + separator.size());
    }
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view replacement) {
    std::string result;
    if (what.empty()) return std::string(text);
    for (;;) {
        const auto at = text.find(what);
        result.append(text.substr(0, at));
        if (at == std::string_view::npos) return result;
        result.append(replacement);
        text.remove_prefix(at + what.size());
    }
}

Assignment splitAssignment(std::string_view text) {
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) return {text, {}, false};
    return {text.substr(0, equals), text.substr(equals + 1), true};
}

std::vector<std::string> splitLines(std::string_view text) {
    const char lineEnd = text.find('\n') == std::string_view::npos ? '\r' : '\n';
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = text.find(lineEnd);
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (lineEnd == '\n' && end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
    }
    return lines;
}

std::string onOneLine(std::string_view text) {
    std::string line = replaceAll(text, "\r\n", " ");
    std::replace_if(
        line.begin(), line.end(), [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return line;
}

bool isUtf8(std::string_view bytes) {
    if (isAscii(bytes)) return true;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        if (lead < 0xC2 || lead > 0xF4 || i + length > bytes.size()) return false;
        for (std::size_t k = 1; k < length; ++k) {
            if (!isContinuation(bytes[i + k])) return false;
        }
        const char32_t codePoint = nextCodePoint(bytes, i);
        const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
        if (overlong || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) return false;
    }
    return true;
}

void appendUtf8(std::string& text, char32_t codePoint) {
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        put(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
    }
    put(0x80 | (codePoint & 0x3F));
}

int toInteger16(std::string_view text) {
    const auto because = [text](ErrorNumber error, const char* cause) {
        return RunTimeError(error).because("'" + std::string(text) + cause);
    };
    if (!isWholeNumber(text)) throw because(ErrorNumber::typeMismatch, "' is no whole number.");
    std::string_view digits = trimmedBlanks(text);
    if (digits.front() == '+') digits.remove_prefix(1);
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc() && number >= -32768 && number <= 32767) return number;
    throw because(ErrorNumber::overflow, "' is beyond 16 bits.");
}

}  // namespace brasquelin
