#include "text/visibleText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

#include "text/text.h"

namespace brasquelin {

namespace {

constexpr char32_t unreadable = 0xFFFD;

struct CodePointRange {
    char32_t first;
    char32_t last;
};
/// C1 controls, soft hyphen, zero width and direction marks, line separators, marks of byte order and annotation.
constexpr std::array<CodePointRange, 9> unseen = {{{0x80, 0x9F},
                                                   {0xAD, 0xAD},
                                                   {0x61C, 0x61C},
                                                   {0x180E, 0x180E},
                                                   {0x200B, 0x200F},
                                                   {0x2028, 0x202E},
                                                   {0x2060, 0x206F},
                                                   {0xFEFF, 0xFEFF},
                                                   {0xFFF9, 0xFFFB}}};

bool isUnseen(char32_t codePoint) {
    return std::any_of(unseen.begin(), unseen.end(), [codePoint](const CodePointRange& range) {
        return codePoint >= range.first && codePoint <= range.last;
    });
}

std::size_t lengthOf(unsigned char lead) {
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Appends the visible form of what is taken off the line.
void takeVisible(std::string& text, std::string_view& line) {
    const std::size_t left = line.size();
    const char32_t codePoint = takeCodePoint(line);
    const bool cutOff = codePoint == 0 && line.size() == left;
    if (cutOff) line.remove_prefix(1);
    appendVisible(text, cutOff ? unreadable : codePoint);
}

/// A character and what is shown of it.
struct Piece {
    std::string_view bytes;
    std::string visible;
};

std::vector<Piece> piecesOf(std::string_view text) {
    std::vector<Piece> pieces;
    while (!text.empty()) {
        const std::string_view left = text;
        std::string visible;
        takeVisible(visible, text);
        pieces.push_back({left.substr(0, left.size() - text.size()), std::move(visible)});
    }
    return pieces;
}

constexpr std::size_t longestShown = 1000;  // columns cannot be wider than a screen's coordinates

bool isShownAsItIs(std::string_view line) {
    const auto isOdd = [](char byte) { return byte < ' ' || byte > '~'; };
    return line.size() <= longestShown && std::count_if(line.begin(), line.end(), isOdd) == 0;
}

}  // namespace

void appendVisible(std::string& text, char32_t codePoint) {
    constexpr char32_t signsOfControls = 0x2400;
    if (codePoint < 0x20) return appendUtf8(text, signsOfControls + codePoint);
    if (codePoint == 0x7F) return appendUtf8(text, 0x2421);
    if (!isUnseen(codePoint)) return appendUtf8(text, codePoint);
    char sign[16];
    std::snprintf(sign, sizeof sign, "<U+%04X>", static_cast<unsigned>(codePoint));
    text.append(sign);
}

char32_t takeCodePoint(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lengthOf(lead);
    const std::string_view character = text.substr(0, length);
    if (length > 1 && !isUtf8(character)) {
        const bool mayGoOn = lead >= 0xC2 && lead <= 0xF4 && character.size() < length &&
                             std::all_of(character.begin() + 1, character.end(),
                                         [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; });
        if (mayGoOn) return 0;
        text.remove_prefix(1);
        return unreadable;
    }
    text.remove_prefix(length);
    char32_t codePoint = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (const char byte : character.substr(1)) {
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return codePoint;
}

std::string visibleText(std::string_view line) {
    std::string text;
    text.reserve(line.size());
    while (!line.empty()) takeVisible(text, line);
    return text;
}

std::string shownLine(std::string_view line) {
    if (isShownAsItIs(line)) return std::string(line);
    std::string text;
    for (std::size_t count = 0; !line.empty() && count < longestShown;) {
        const std::size_t before = text.size();
        takeVisible(text, line);
        count += characterCount(std::string_view(text).substr(before));
    }
    return line.empty() ? text : text + " ...";
}

std::size_t shownWidth(std::string_view line) {
    return isShownAsItIs(line) ? line.size() : characterCount(shownLine(line));
}

std::string withEdit(std::string_view text, std::string_view shown) {
    const std::vector<Piece> pieces = piecesOf(text);
    std::size_t first = 0;
    std::string kept;
    for (; first < pieces.size() && shown.starts_with(pieces[first].visible); ++first) {
        shown.remove_prefix(pieces[first].visible.size());
        kept.append(pieces[first].bytes);
    }
    std::size_t end = pieces.size();
    while (end > first && shown.ends_with(pieces[end - 1].visible)) {
        --end;
        shown.remove_suffix(pieces[end].visible.size());
    }
    kept.append(shown);
    for (; end < pieces.size(); ++end) kept.append(pieces[end].bytes);
    return kept;
}

}  // namespace brasquelin
