#include "text/lineQueue.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace brasquelin {

namespace {

/// What stands in front of a line's bytes.
struct LineHead {
    std::uint32_t shared = 0;  // bytes at the beginning of the line before
    std::uint32_t size = 0;    // of those that follow
};

/// How many bytes both begin with.
std::size_t sharedBytes(std::string_view left, std::string_view right) {
    constexpr std::size_t step = 8;  // compared as one number
    const std::size_t most = std::min(left.size(), right.size());
    std::size_t shared = 0;
    const auto isSame = [&](std::size_t count) {
        return std::equal(left.data() + shared, left.data() + shared + count, right.data() + shared);
    };
    while (shared + step <= most && isSame(step)) shared += step;
    while (shared < most && isSame(1)) ++shared;
    return shared;
}

}  // namespace

/// As large as the blocks of those who keep what becomes of the lines, for which they make room.
LineQueue::Block& LineQueue::blockFor(std::size_t bytes) {
    constexpr std::size_t blockSize = 1U << 14U;
    if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < bytes) {
        blocks_.emplace_back().reserve(std::max(blockSize, bytes));
    }
    return blocks_.back();
}

void LineQueue::add(std::string_view line) {
    constexpr std::size_t mostShared = 1U << 12U;
    const std::size_t shared = sharedBytes(lastBegin_, line);
    const std::string_view rest = line.substr(shared);
    const LineHead head{static_cast<std::uint32_t>(shared), static_cast<std::uint32_t>(rest.size())};
    Block& block = blockFor(sizeof head + rest.size());
    const auto* const begin = reinterpret_cast<const char*>(&head);
    block.insert(block.end(), begin, begin + sizeof head);
    block.insert(block.end(), rest.begin(), rest.end());
    lastBegin_.replace(shared, std::string::npos, rest.substr(0, mostShared - shared));
}

std::optional<std::string_view> LineQueue::take() {
    if (!blocks_.empty() && taken_ == blocks_.front().size()) {
        blocks_.pop_front();
        taken_ = 0;
    }
    if (blocks_.empty()) return std::nullopt;
    LineHead head;
    const char* const begin = blocks_.front().data() + taken_;
    std::memcpy(&head, begin, sizeof head);
    line_.resize(head.shared);
    line_.append(begin + sizeof head, head.size);
    taken_ += sizeof head + head.size;
    return line_;
}

}  // namespace brasquelin
