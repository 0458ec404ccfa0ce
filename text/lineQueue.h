// Many lines that are taken in the order in which they were added.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// What a line has in common with the beginning of the one before it takes no memory, and lines that were taken give
/// theirs back.
class LineQueue {
  public:
    /// At most 4 GB.
    void add(std::string_view line);

    /// The first line, which leaves the queue; nothing from an empty one. It lives until the next call.
    std::optional<std::string_view> take();

  private:
    using Block = std::vector<char>;

    Block& blockFor(std::size_t bytes);

    std::deque<Block> blocks_;  // none of them ever grows
    std::size_t taken_ = 0;     // bytes of the first block
    std::string lastBegin_;     // of the line that was added last
    std::string line_;          // the one that was taken last
};

}  // namespace brasquelin
