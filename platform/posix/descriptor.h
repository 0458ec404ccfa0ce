// An open file of the system.
#pragma once

#include <unistd.h>

#include <utility>

namespace brasquelin {

/// Closes what it holds.
class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    /// Holds another one, or none. False when the system reports a late write error.
    bool reset(int value = -1) {
        const int before = std::exchange(value_, value);
        return before < 0 || close(before) == 0;
    }
    /// Leaves what it holds to the caller.
    int release() { return std::exchange(value_, -1); }

  private:
    int value_;
};

}  // namespace brasquelin
