#include "platform/onlooker.h"

#include <utility>

namespace brasquelin {

namespace {

Onlooker* current = nullptr;

}  // namespace

Onlooker* onlooker() {
    return current;
}

LookingOn::LookingOn(Onlooker& newOnlooker) : before_(std::exchange(current, &newOnlooker)) {}

LookingOn::~LookingOn() {
    current = before_;
}

}  // namespace brasquelin
