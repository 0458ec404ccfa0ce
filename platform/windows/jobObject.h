// A child with all that it starts, held by one handle.
#pragma once

#include <windows.h>

#include "platform/windows/systemHandle.h"

namespace brasquelin {

/// What is in the job ends with the last handle to it, so with this program, however that ends: by a closed console, at
/// the end of the session, or by force. Null where the system does not offer that.
SystemHandle newJobObject();

/// What is in the job goes on when its handle goes.
void letJobGoOn(HANDLE job);

/// A process that was created suspended begins, in the job unless that is null. Gives the process.
SystemHandle beginInJob(const PROCESS_INFORMATION& process, HANDLE job);

}  // namespace brasquelin
