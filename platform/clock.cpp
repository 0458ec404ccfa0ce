#include "platform/clock.h"

#include <chrono>
#include <thread>

namespace brasquelin {

namespace {

class SystemClock : public Clock {
  public:
    std::uint64_t tickCount() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
    }
    void sleep(std::uint32_t milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
};

Clock* replacement = nullptr;

}  // namespace

std::int64_t wallClock() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

Clock& clockInUse() {
    static SystemClock systemClock;
    return replacement != nullptr ? *replacement : systemClock;
}

void setClock(Clock* clock) {
    replacement = clock;
}

}  // namespace brasquelin
