#include "app/batchFile.h"

#include "app/jobList.h"
#include "config/configFile.h"
#include "platform/childProcess.h"
#include "platform/codePages.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

/// `betweenLauncherAndFile` separates a configured launcher from the batch file.
std::string batchCommand(std::string_view betweenLauncherAndFile) {
    if (settings.shellExec.empty()) return batchFilePath();
    return settings.shellExec + std::string(betweenLauncherAndFile) + batchFilePath();
}

}  // namespace

std::string batchFilePath() {
    return joinPath(exeDirectory(), "brasquelin.bat");
}

void writeBatchFile() {
    std::string text;
    for (const auto& line : jobList.lines()) text.append(line).append("\r\n");
    writeFile(batchFilePath(), encodeOem(text));
}

void runBatchAndWait() {
    writeBatchFile();
    try {
        shellAndWait(batchCommand(" "), WindowStyle::normalWithFocus, "The job list");
    } catch (const RunTimeError& error) {  // whoever reports it names the batch file
        throw error.because("'" + error.path() + "'");
    }
    if (childCancelled()) throw EndProgram(1);
}

void executeLine(std::optional<std::size_t> selected) {
    startCommand(selected ? std::string_view(jobList.line(*selected)) : std::string_view(),
                 WindowStyle::normalWithFocus);
}

void executeJobList() {
    if (jobList.empty()) {
        desktop().showMessage("Joblist empty !", "Error", Icon::exclamation);
        return;
    }
    writeBatchFile();
    startCommand(batchCommand(" Brasquelin "), WindowStyle::normalWithFocus);  // the word is the launcher's title
    throw EndProgram(0);
}

void clearJobList() {
    jobList.clear();
}

}  // namespace brasquelin
