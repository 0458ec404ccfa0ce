#include "batch/outputText.h"

#include <algorithm>

#include "platform/codePages.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

constexpr char32_t escape = 0x1B;
constexpr char32_t bell = 0x07;
constexpr std::size_t longestLine = 4000;  // longer ones are broken: they would make windows slow
constexpr std::size_t longestSequence = 256;
constexpr std::size_t longestString = 4096;

}  // namespace

void OutputText::append(std::string_view bytes) {
    const std::string decoded = cut_ + decodePrinted(bytes);
    cut_.clear();
    for (std::string_view rest = decoded; !rest.empty();) {
        const std::size_t left = rest.size();
        const char32_t codePoint = takeCodePoint(rest);
        if (rest.size() == left) {
            cut_ = rest;
            return;
        }
        take(codePoint);
    }
}

void OutputText::skip() {
    *this = OutputText(mostBytes_);
    leftOut_ = true;
}

std::string OutputText::text() const {
    std::string text = leftOut_ ? "[... what came before is only in the file of the output ...]\n" : "";
    text.reserve(text.size() + bytes_ + line_.size());
    for (const auto& line : lines_) text.append(line);
    for (const char32_t codePoint : line_) appendVisible(text, codePoint);
    return text;
}

void OutputText::take(char32_t codePoint) {
    switch (state_) {
        case State::text:
            return codePoint < 0x20 ? takeControl(codePoint) : put(codePoint);
        case State::escape:
            return takeInEscape(codePoint);
        case State::intermediate:
            if (codePoint < 0x20 || codePoint > 0x2F) state_ = State::text;
            return;
        case State::sequence:
            return takeInSequence(codePoint);
        case State::string:
        case State::stringEscape:
            return takeInString(codePoint);
    }
}

void OutputText::takeControl(char32_t codePoint) {
    switch (codePoint) {
        case '\n':
            return endLine();
        case '\r':
            cursor_ = 0;
            return;
        case '\b':
            if (cursor_ > 0) --cursor_;
            return;
        case '\t':
            return tab();
        case escape:
            state_ = State::escape;
            return;
        default:
            return put(codePoint);
    }
}

void OutputText::takeInEscape(char32_t codePoint) {
    sequenceLength_ = 0;
    parameter_ = 0;
    if (codePoint == '[') {
        state_ = State::sequence;
    } else if (codePoint == ']' || codePoint == 'P' || codePoint == 'X' || codePoint == '^' || codePoint == '_') {
        state_ = State::string;
    } else if (codePoint >= 0x20 && codePoint <= 0x2F) {
        state_ = State::intermediate;
    } else if (codePoint != escape) {
        state_ = State::text;
        if (codePoint < 0x20) takeControl(codePoint);
    }
}

/// Controls act within a sequence, too; one that never ends is none.
void OutputText::takeInSequence(char32_t codePoint) {
    if (codePoint < 0x20) {
        if (codePoint == escape || codePoint == '\n') state_ = State::text;
        return takeControl(codePoint);
    }
    if (codePoint >= 0x40 || ++sequenceLength_ > longestSequence) {
        state_ = State::text;
        if (codePoint == 'K') eraseInLine();
        return;
    }
    parameter_ = codePoint;
}

/// A title or a link. Ends with a bell or an escape and a back-slash; binary bytes that only look like one, with their
/// line.
void OutputText::takeInString(char32_t codePoint) {
    if (state_ == State::stringEscape && codePoint != '\\') {
        state_ = State::escape;
        return takeInEscape(codePoint);
    }
    if (codePoint == escape) {
        state_ = State::stringEscape;
    } else if (state_ == State::stringEscape || codePoint == bell || ++sequenceLength_ > longestString) {
        state_ = State::text;
    } else if (codePoint == '\n') {
        state_ = State::text;
        endLine();
    }
}

void OutputText::put(char32_t codePoint) {
    if (cursor_ >= longestLine) endLine();
    if (cursor_ < line_.size()) {
        line_[cursor_] = codePoint;
    } else {
        line_.push_back(codePoint);
    }
    ++cursor_;
}

void OutputText::tab() {
    constexpr std::size_t width = 8;
    cursor_ = (cursor_ / width + 1) * width;
    if (cursor_ > line_.size()) line_.resize(cursor_, U' ');
}

void OutputText::eraseInLine() {
    if (parameter_ == '2') {
        std::fill(line_.begin(), line_.end(), U' ');
    } else if (parameter_ == '1') {
        std::fill_n(line_.begin(), std::min(cursor_ + 1, line_.size()), U' ');
    } else {
        line_.resize(cursor_);
    }
}

void OutputText::endLine() {
    std::string text;
    text.reserve(line_.size() + 1);
    for (const char32_t codePoint : line_) appendVisible(text, codePoint);
    text += '\n';
    bytes_ += text.size();
    lines_.push_back(std::move(text));
    line_.clear();
    cursor_ = 0;
    if (bytes_ <= 2 * mostBytes_) return;
    while (bytes_ - lines_.front().size() >= mostBytes_) {
        bytes_ -= lines_.front().size();
        lines_.pop_front();
    }
    leftOut_ = true;
}

}  // namespace brasquelin
