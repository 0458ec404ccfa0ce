// Starting a program that inherits certain handles, and no others.
#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "platform/windows/systemHandle.h"

namespace brasquelin {

/// Two ends of a pipe; only `theirs` can be inherited.
struct PipeEnds {
    SystemHandle ours;
    SystemHandle theirs;
};
enum class PipeUse { weRead, weWrite };
/// Raises the error of starting `program`.
PipeEnds makePipe(PipeUse use, const std::string& program);

/// For as long as it lives.
class InheritedHandles {
  public:
    explicit InheritedHandles(std::array<HANDLE, 2> handles);
    ~InheritedHandles();
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;
    LPPROC_THREAD_ATTRIBUTE_LIST list() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(bytes_.data()); }

  private:
    std::array<HANDLE, 2> handles_;
    std::vector<char> bytes_;
};

}  // namespace brasquelin
