// Waiting for another process.
#pragma once

#include <chrono>
#include <thread>

namespace brasquelin {

/// True once `condition` holds; gives up after some seconds.
template <typename Condition>
bool becomesTrue(Condition condition, int seconds = 20) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

}  // namespace brasquelin
