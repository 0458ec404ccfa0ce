// A file that grows while others read it: a log.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace brasquelin {

class AppendFile {
  public:
    virtual ~AppendFile() = default;
    /// At the end, at once. Raises 57, 61 or 75 with the path.
    virtual void append(std::string_view bytes) = 0;
    /// What was written survives a power cut. Never raises.
    virtual void sync() noexcept = 0;
    virtual std::uint64_t size() const = 0;
};

/// Opens a file for appending, created if it is missing, emptied if `fresh`. Programs that are started do not inherit
/// it. Raises 70, 75 or 76 with the path.
std::unique_ptr<AppendFile> openForAppending(const std::string& path, bool fresh);

}  // namespace brasquelin
