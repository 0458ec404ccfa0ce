#include "platform/windows/inheritedHandles.h"

#include "platform/windows/systemError.h"
#include "text/runTimeError.h"

namespace brasquelin {

PipeEnds makePipe(PipeUse use, const std::string& program) {
    constexpr DWORD size = 1U << 16U;
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (CreatePipe(&reading, &writing, &inheritable, size) == 0) {
        throw RunTimeError(startErrorOf(GetLastError()), program);
    }
    PipeEnds ends{ownHandle(reading), ownHandle(writing)};
    if (use == PipeUse::weWrite) std::swap(ends.ours, ends.theirs);
    SetHandleInformation(ends.ours.get(), HANDLE_FLAG_INHERIT, 0);
    return ends;
}

InheritedHandles::InheritedHandles(std::array<HANDLE, 2> handles) : handles_(handles) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    bytes_.resize(size);
    InitializeProcThreadAttributeList(list(), 1, 0, &size);
    UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(), sizeof handles_, nullptr,
                              nullptr);
}

InheritedHandles::~InheritedHandles() {
    DeleteProcThreadAttributeList(list());
}

}  // namespace brasquelin
