#include "text/lineQueue.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>
#include <string>

namespace brasquelin {
namespace {

/// Lines that begin alike, some of them longer than what is looked at for that and than a block.
TEST(LineQueue, GivesTheLinesInTheirOrder) {
    std::mt19937 random(1);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    LineQueue queue;
    std::deque<std::string> expected;
    std::string line;
    for (int step = 0; step < 20'000; ++step) {
        if (below(3) > 0) {
            line.resize(below(line.size() + 1));
            line.append(below(50) == 0 ? below(20'000) : below(30), static_cast<char>('a' + below(3)));
            queue.add(line);
            expected.push_back(line);
        } else if (expected.empty()) {
            EXPECT_FALSE(queue.take());
        } else {
            ASSERT_EQ(queue.take(), expected.front());
            expected.pop_front();
        }
    }
    for (; !expected.empty(); expected.pop_front()) ASSERT_EQ(queue.take(), expected.front());
    EXPECT_FALSE(queue.take());
}

}  // namespace
}  // namespace brasquelin
