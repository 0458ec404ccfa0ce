// Telling the user what the program is waiting for.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace brasquelin {

/// Once the wait has lasted half a second, a small window tells what it is for and offers a Cancel. Without windows
/// nothing is shown. The window goes with the notice.
class WaitingNotice {
  public:
    /// `cancel` is called from an event, while pending events are processed.
    WaitingNotice(std::string what, std::function<void()> cancel);
    ~WaitingNotice();
    WaitingNotice(const WaitingNotice&) = delete;
    WaitingNotice& operator=(const WaitingNotice&) = delete;

    /// To be called again and again while the wait lasts.
    void look();

  private:
    std::string what_;
    std::function<void()> cancel_;
    std::uint64_t begin_;
    bool shown_ = false;
};

}  // namespace brasquelin
