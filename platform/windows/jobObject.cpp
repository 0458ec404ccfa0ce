#include "platform/windows/jobObject.h"

namespace brasquelin {

namespace {

bool limit(HANDLE job, DWORD flags) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = flags;
    return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) != 0;
}

}  // namespace

SystemHandle newJobObject() {
    SystemHandle job = ownHandle(CreateJobObjectW(nullptr, nullptr));
    if (job && !limit(job.get(), JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE)) job.reset();
    return job;
}

void letJobGoOn(HANDLE job) {
    limit(job, 0);
}

SystemHandle beginInJob(const PROCESS_INFORMATION& process, HANDLE job) {
    if (job != nullptr) AssignProcessToJobObject(job, process.hProcess);  // before it can start anything itself
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    return ownHandle(process.hProcess);
}

}  // namespace brasquelin
