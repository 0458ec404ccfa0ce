// The end of a piece of the output file, which may still grow, as text. Reads only what can be shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "batch/outputText.h"

namespace brasquelin {

class OutputTail {
  public:
    static constexpr std::uint64_t growing = std::numeric_limits<std::uint64_t>::max();

    /// `mostBytes` is how much of a long piece is kept.
    explicit OutputTail(std::size_t mostBytes) : mostBytes_(mostBytes), text_(mostBytes) {}

    /// From now on these bytes of the file; `end` is `growing` while more may come. A piece that is shown already
    /// goes on, also when its end has become known. True for another piece.
    bool show(const std::string& path, std::uint64_t begin, std::uint64_t end);

    /// Reads what is new, `mostBytes` at the most; what lies further back is left out. True when the text may have
    /// changed. A file that cannot be read is as one that does not grow.
    bool update();

    std::string text() const { return text_.text(); }

  private:
    void jumpTo(std::uint64_t position);

    std::size_t mostBytes_;
    OutputText text_;
    std::string path_;
    std::uint64_t begin_ = 0;
    std::uint64_t end_ = 0;
    std::uint64_t position_ = 0;
    bool midLine_ = false;  // after a jump, up to the next line
    bool changed_ = false;
};

}  // namespace brasquelin
