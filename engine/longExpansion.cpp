#include "engine/longExpansion.h"

#include "platform/clock.h"
#include "platform/desktop.h"
#include "text/runTimeError.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

LongExpansion* current = nullptr;

}  // namespace

LongExpansion::LongExpansion(const std::string& path) : path_(path) {
    if (current != nullptr) return;
    current = this;
    setLongWorkHook(look);
}

LongExpansion::~LongExpansion() {
    if (current != this) return;
    current = nullptr;
    setLongWorkHook(nullptr);
}

void LongExpansion::look() {
    constexpr std::uint64_t interval = 50;  // milliseconds
    LongExpansion& self = *current;
    const std::uint64_t now = clockInUse().tickCount();
    if (now - self.lastEvents_ < interval) return;
    self.lastEvents_ = now;
    if (!self.notice_) {
        self.notice_.emplace("Long lines of '" + self.path_ + "' are being expanded.",
                             [&self] { self.cancelled_ = true; });
    }
    self.notice_->look();
    desktop().processPendingEvents();
    if (self.cancelled_) throw RunTimeError(ErrorNumber::userInterrupt, self.path_);
}

}  // namespace brasquelin
