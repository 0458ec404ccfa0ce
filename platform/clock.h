// Time, behind an interface so that tests need not wait.
#pragma once

#include <cstdint>

namespace brasquelin {

class Clock {
  public:
    virtual ~Clock() = default;
    /// Milliseconds since some fixed moment.
    virtual std::uint64_t tickCount() = 0;
    virtual void sleep(std::uint32_t milliseconds) = 0;
};

/// The time of day: milliseconds since 1970.
std::int64_t wallClock();

/// The clock in use: the system's until another one is set.
Clock& clockInUse();
/// A null pointer brings the system's clock back.
void setClock(Clock* clock);

}  // namespace brasquelin
