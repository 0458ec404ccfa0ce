#include "text/lineStore.h"

#include <algorithm>

namespace brasquelin {

std::string_view LineStore::add(std::string_view line) {
    constexpr std::size_t pageSize = 1U << 14U;
    if (pages_.empty() || pages_.back().capacity() - pages_.back().size() < line.size()) {
        pages_.emplace_back().reserve(std::max(pageSize, line.size()));
    }
    auto& page = pages_.back();
    const std::size_t begin = page.size();
    page.insert(page.end(), line.begin(), line.end());
    return std::string_view(page.data(), page.size()).substr(begin);
}

}  // namespace brasquelin
