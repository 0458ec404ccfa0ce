// The program's pictures by what they stand for; how they are drawn is the toolkit's business.
#pragma once

namespace brasquelin {

enum class Picture {
    addLibrary,
    addProfile,
    clearJoblist,
    executeLine,
    executeJoblist,
    profileEditor,
    options,
    about,
    moveUp,
    moveDown,
    reference,
    jobWaiting,
    jobRunning,
    jobDone,
    jobFailed,
    jobLeftOut,
    program
};

}  // namespace brasquelin
