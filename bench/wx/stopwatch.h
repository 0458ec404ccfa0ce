// Times what a window is told to do, until it is up to date.
#pragma once

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/window.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

namespace brasquelin {

class Stopwatch {
  public:
    explicit Stopwatch(wxWindow& window) : window_(window) {}

    /// Prints the milliseconds that the action takes.
    void time(const std::string& what, const std::function<void()>& action) {
        const auto start = std::chrono::steady_clock::now();
        action();
        wxTheApp->ProcessIdle();
        window_.Update();
        tell(what, std::chrono::steady_clock::now() - start);
        wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
    }

    /// Processes events until the condition holds, and prints the longest time in which the window took none.
    void timeLongestPause(const std::string& what, const std::function<bool()>& condition) {
        Duration longest{};
        while (!condition()) {
            const auto start = std::chrono::steady_clock::now();
            wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
            longest = std::max<Duration>(longest, std::chrono::steady_clock::now() - start);
        }
        tell(what, longest);
    }

  private:
    using Duration = std::chrono::duration<double, std::milli>;

    static void tell(const std::string& what, Duration taken) {
        std::printf("%8.1f ms  %s\n", taken.count(), what.c_str());
    }

    wxWindow& window_;
};

}  // namespace brasquelin
