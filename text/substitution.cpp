#include "text/substitution.h"

#include <algorithm>

#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t widestGap = 63;  // longer gaps share the last bit

LongWorkHook longWorkHook = nullptr;

/// References that lead to others may double a text with each name.
void appendChecked(std::string& text, std::string_view piece) {
    if (text.size() + piece.size() > mostExpandedBytes) {
        throw RunTimeError(ErrorNumber::overflow)
            .because("With its references replaced, the line is longer than " +
                     std::to_string(mostExpandedBytes >> 20U) + " MB.");
    }
    text.append(piece);
}

std::uint64_t gapBit(std::size_t length) {
    return std::uint64_t{1} << std::min(length, widestGap);
}

/// For a name that may hold dollar signs itself.
std::string replaceOddVar(std::string_view name, std::string_view value, std::string_view text) {
    const std::string pattern = "$" + std::string(name) + "$";
    std::string result;
    std::size_t from = 0;
    for (TextMatch match; (match = findIgnoringCase(text, pattern, from)); from = match.end) {
        appendChecked(result, text.substr(from, match.begin - from));
        appendChecked(result, value);
    }
    appendChecked(result, text.substr(from));
    return result;
}

}  // namespace

ReferenceText::ReferenceText(std::string text) : text_(std::move(text)) {
    findDollars();
}

void ReferenceText::assign(std::string_view text) {
    text_.assign(text);
    findDollars();
}

void ReferenceText::findDollars() {
    dollars_.clear();
    for (auto at = text_.find('$'); at != std::string::npos; at = text_.find('$', at + 1)) dollars_.push_back(at);
    ascii_ = dollars_.size() < 2 || isAscii(text_);
    findGaps();
}

void ReferenceText::findGaps() {
    gaps_ = 0;
    for (std::size_t i = 1; i < dollars_.size(); ++i) gaps_ |= gapBit(dollars_[i] - dollars_[i - 1] - 1);
}

bool ReferenceText::mayHoldGap(std::size_t length) const {
    // Letter case may change the number of bytes outside ASCII.
    return mayRefer() && (!ascii_ || (gaps_ & gapBit(length)) != 0);
}

bool ReferenceText::pairMatches(std::size_t index, std::string_view name) const {
    const std::string_view found = pair(index);
    return (!ascii_ || found.size() == name.size()) && equalIgnoringCase(found, name);
}

bool ReferenceText::refersTo(std::string_view name) const {
    if (name.find('$') != std::string_view::npos) {
        return static_cast<bool>(findIgnoringCase(text_, "$" + std::string(name) + "$"));
    }
    if (!mayHoldGap(name.size())) return false;
    for (std::size_t pair = 0; pair + 1 < dollars_.size(); ++pair) {
        if (pairMatches(pair, name)) return true;
    }
    return false;
}

/// Takes a part of the text over into the result.
void ReferenceText::keepText(std::size_t begin, std::size_t end) {
    appendChecked(built_, std::string_view(text_).substr(begin, end - begin));
}

void ReferenceText::replacePairs(std::size_t first, std::string_view name, std::string_view value) {
    built_.clear();
    builtDollars_.assign(dollars_.begin(), dollars_.begin() + static_cast<std::ptrdiff_t>(first));
    std::size_t taken = 0;  // bytes of the text
    std::size_t pair = first;
    while (pair < dollars_.size()) {
        if (pair + 1 == dollars_.size() || !pairMatches(pair, name)) {
            builtDollars_.push_back(built_.size() + dollars_[pair++] - taken);
            continue;
        }
        keepText(taken, dollars_[pair]);
        for (auto at = value.find('$'); at != std::string_view::npos; at = value.find('$', at + 1)) {
            builtDollars_.push_back(built_.size() + at);
        }
        appendChecked(built_, value);
        taken = dollars_[pair + 1] + 1;
        pair += 2;
    }
    keepText(taken, text_.size());
    text_.swap(built_);
    dollars_.swap(builtDollars_);
    ascii_ = ascii_ && isAscii(value);
    findGaps();
}

void ReferenceText::replace(std::string_view name, std::string_view value) {
    if (name.find('$') != std::string_view::npos) return assign(replaceVar(name, value, text_));
    if (!mayHoldGap(name.size())) return;
    tellLongWork();
    for (std::size_t pair = 0; pair + 1 < dollars_.size(); ++pair) {
        if (pairMatches(pair, name)) return replacePairs(pair, name, value);
    }
}

void ReferenceText::replaceForm(std::string_view opening, std::string_view name, std::string_view value) {
    if (!mayHoldGap(name.size()) && name.find('$') == std::string_view::npos) return;
    tellLongWork();
    const std::string form = std::string(opening) + "($" + std::string(name) + "$)";
    std::size_t found = text_.find(form);
    if (found == std::string::npos) return;
    built_.clear();
    std::size_t taken = 0;
    for (; found != std::string::npos; found = text_.find(form, taken)) {
        keepText(taken, found);
        appendChecked(built_, value);
        taken = found + form.size();
    }
    keepText(taken, text_.size());
    text_.swap(built_);
    findDollars();
}

void ReferenceText::tellLongWork() const {
    constexpr std::size_t longText = 4096;
    if (text_.size() > longText && longWorkHook != nullptr) longWorkHook();
}

void setLongWorkHook(LongWorkHook hook) {
    longWorkHook = hook;
}

std::string replaceVar(std::string_view name, std::string_view value, std::string_view text) {
    if (name.find('$') != std::string_view::npos) return replaceOddVar(name, value, text);
    std::string result;
    std::size_t taken = 0;
    for (auto begin = text.find('$'); begin != std::string_view::npos;) {
        const auto end = text.find('$', begin + 1);
        if (end == std::string_view::npos) break;
        const bool found = equalIgnoringCase(text.substr(begin + 1, end - begin - 1), name);
        if (found) {
            appendChecked(result, text.substr(taken, begin - taken));
            appendChecked(result, value);
            taken = end + 1;
        }
        begin = found ? text.find('$', taken) : end;
    }
    appendChecked(result, text.substr(taken));
    return result;
}

std::string dirOf(std::string_view path) {
    const auto separator = path.find_last_of("\\/");
    return std::string(separator == std::string_view::npos ? std::string_view() : path.substr(0, separator));
}

std::string fileNameOf(std::string_view path) {
    const auto separator = path.find_last_of("\\/");
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string doubleBackslashes(std::string_view path) {
    if (!path.empty() && path.front() == '/') return std::string(path);
    if (characterCount(path) < 7) return {};
    return std::string(firstCharacters(path, 3)) + "\\" + replaceAll(fromCharacter(path, 4), "\\", "\\\\");
}

}  // namespace brasquelin
