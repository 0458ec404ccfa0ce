// A handle of the system that closes itself.
#pragma once

#include <memory>

namespace brasquelin {

struct CloseSystemHandle {
    void operator()(void* handle) const;
};
using SystemHandle = std::unique_ptr<void, CloseSystemHandle>;

/// The system marks a missing handle in two ways; here it is always null.
SystemHandle ownHandle(void* handle);

}  // namespace brasquelin
