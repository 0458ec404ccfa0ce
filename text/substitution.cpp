#include "text/substitution.h"

#include <algorithm>

#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t widestGap = 63;  // longer gaps share the last bit

std::uint64_t gapBit(std::size_t length) {
    return std::uint64_t{1} << std::min(length, widestGap);
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

bool ReferenceText::pairMatches(std::size_t pair, std::string_view name) const {
    const std::size_t begin = dollars_[pair] + 1;
    const std::size_t length = dollars_[pair + 1] - begin;
    if (ascii_ && length != name.size()) return false;
    return equalIgnoringCase(std::string_view(text_).substr(begin, length), name);
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

void ReferenceText::replacePair(std::size_t pair, std::string_view value) {
    const std::size_t begin = dollars_[pair];
    const std::size_t length = dollars_[pair + 1] - begin + 1;
    text_.replace(begin, length, value);

    const auto following = dollars_.erase(dollars_.begin() + static_cast<std::ptrdiff_t>(pair),
                                          dollars_.begin() + static_cast<std::ptrdiff_t>(pair) + 2);
    for (auto at = following; at != dollars_.end(); ++at) *at = *at - length + value.size();
    std::ptrdiff_t index = following - dollars_.begin();
    for (auto at = value.find('$'); at != std::string_view::npos; at = value.find('$', at + 1)) {
        dollars_.insert(dollars_.begin() + index++, begin + at);
    }
    ascii_ = ascii_ && isAscii(value);
}

void ReferenceText::replace(std::string_view name, std::string_view value) {
    if (name.find('$') != std::string_view::npos) {
        *this = ReferenceText(replaceVar(name, value, text_));
        return;
    }
    if (!mayHoldGap(name.size())) return;
    bool changed = false;
    for (std::size_t pair = 0; pair + 1 < dollars_.size();) {
        if (!pairMatches(pair, name)) {
            ++pair;
            continue;
        }
        replacePair(pair, value);
        pair += static_cast<std::size_t>(std::count(value.begin(), value.end(), '$'));
        changed = true;
    }
    if (changed) findGaps();
}

void ReferenceText::replaceForm(std::string_view opening, std::string_view name, std::string_view value) {
    if (!mayHoldGap(name.size()) && name.find('$') == std::string_view::npos) return;
    const std::string form = std::string(opening) + "($" + std::string(name) + "$)";
    if (text_.find(form) == std::string::npos) return;
    *this = ReferenceText(replaceAll(text_, form, value));
}

std::string replaceVar(std::string_view name, std::string_view value, std::string_view text) {
    if (name.find('$') == std::string_view::npos) {
        ReferenceText references{std::string(text)};
        references.replace(name, value);
        return references.take();
    }
    const std::string pattern = "$" + std::string(name) + "$";
    std::string result;
    std::size_t from = 0;
    for (TextMatch match; (match = findIgnoringCase(text, pattern, from)); from = match.end) {
        result.append(text.substr(from, match.begin - from)).append(value);
    }
    return result.append(text.substr(from));
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
