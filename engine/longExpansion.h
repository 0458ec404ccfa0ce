// What the user sees of expansions that take long.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/waitingNotice.h"

namespace brasquelin {

/// As long as it lives, the windows stay alive while long lines are expanded, and after half a second of it a small
/// window names the file. Its Cancel raises 18. Within another one it does nothing.
class LongExpansion {
  public:
    /// `path` outlives it.
    explicit LongExpansion(const std::string& path);
    ~LongExpansion();
    LongExpansion(const LongExpansion&) = delete;
    LongExpansion& operator=(const LongExpansion&) = delete;

  private:
    static void look();

    const std::string& path_;
    std::optional<WaitingNotice> notice_;
    std::uint64_t lastEvents_ = 0;
    bool cancelled_ = false;
};

}  // namespace brasquelin
