// What programs print, as the lines that a terminal would leave: progress lines overwrite themselves, colours are gone.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace brasquelin {

class OutputText {
  public:
    /// Keeps at least the last `mostBytes` of text, and no more than twice that.
    explicit OutputText(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    /// The next bytes as they were printed (see decodePrinted); a character or an escape sequence may be cut in two.
    void append(std::string_view bytes);
    /// Starts over with what follows; what came before counts as left out.
    void skip();

    /// The lines, each ended by "\n" but the last, which may still change. Begins with a line that tells so when
    /// something is left out.
    std::string text() const;
    bool empty() const { return lines_.empty() && line_.empty(); }
    bool leftOut() const { return leftOut_; }

  private:
    enum class State { text, escape, intermediate, sequence, string, stringEscape };

    void take(char32_t codePoint);
    void takeControl(char32_t codePoint);
    void takeInEscape(char32_t codePoint);
    void takeInSequence(char32_t codePoint);
    void takeInString(char32_t codePoint);
    void put(char32_t codePoint);
    void tab();
    void eraseInLine();
    void endLine();

    std::size_t mostBytes_;
    std::deque<std::string> lines_;
    std::size_t bytes_ = 0;  // of lines_
    std::u32string line_;
    std::size_t cursor_ = 0;  // in line_
    std::string cut_;         // the begin of a character
    State state_ = State::text;
    std::size_t sequenceLength_ = 0;
    char32_t parameter_ = 0;  // of a sequence: its last character before the end
    bool leftOut_ = false;
};

}  // namespace brasquelin
