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
    /// False when the system reports a late write error.
    bool reset() {
        const int value = std::exchange(value_, -1);
        return value < 0 || close(value) == 0;
    }

  private:
    int value_;
};

}  // namespace brasquelin
