// Many lines, each at a place of its own for good, in little more memory than their bytes.
#pragma once

#include <string_view>
#include <vector>

namespace brasquelin {

class LineStore {
  public:
    LineStore() = default;
    LineStore(LineStore&&) = default;
    LineStore& operator=(LineStore&&) = default;

    /// Keeps the line; what it gives stays valid, also when the store is moved.
    std::string_view add(std::string_view line);

  private:
    std::vector<std::vector<char>> pages_;  // none of them ever grows
};

}  // namespace brasquelin
