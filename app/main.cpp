#include <string>

#include "app/programOptions.h"
#include "app/runOption.h"
#include "app/startUp.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "platform/standardStreams.h"
#include "platform/windowModule.h"
#include "text/runTimeError.h"

int main(int argc, char** argv) try {
    using namespace brasquelin;
    programDirectory();  // where it cannot be made, nothing else works
    const std::string commandLine = processCommandLine(argc, argv);
    if (const auto status = answerRunOption(commandLine)) return *status;
    if (const auto status = answerOption(commandLine, processArguments(argc, argv))) return *status;
    const std::string reason = whyNoWindows();
    return reason.empty() ? runWithWindows(commandLine) : runWithoutWindows(commandLine, reason);
} catch (const std::exception&) {
    brasquelin::writeMessage(brasquelin::errorTitle, brasquelin::currentRunTimeError().reportWhileLoading({}));
    return 1;
}
