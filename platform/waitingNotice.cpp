#include "platform/waitingNotice.h"

#include <utility>

#include "platform/clock.h"
#include "platform/desktop.h"

namespace brasquelin {

namespace {

constexpr std::uint64_t patience = 500;  // milliseconds

}  // namespace

WaitingNotice::WaitingNotice(std::string what, std::function<void()> cancel)
    : what_(std::move(what)), cancel_(std::move(cancel)), begin_(clockInUse().tickCount()) {}

WaitingNotice::~WaitingNotice() {
    if (shown_) desktop().hideRunning();
}

void WaitingNotice::look() {
    if (shown_ || clockInUse().tickCount() - begin_ < patience) return;
    shown_ = true;
    desktop().showRunning(what_, cancel_);
}

}  // namespace brasquelin
