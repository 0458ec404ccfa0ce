#include <string>

#include "app/programOptions.h"
#include "app/programWindows.h"
#include "app/runOption.h"
#include "app/runWindow.h"
#include "app/startUp.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "platform/standardStreams.h"
#include "platform/wx/application.h"
#include "text/runTimeError.h"

int main(int argc, char** argv) try {
    using namespace brasquelin;
    const std::string commandLine = processCommandLine(argc, argv);
    if (const auto status = answerRunOption(commandLine)) return *status;
    if (const auto status = answerRunWindow(commandLine)) return *status;
    if (const auto status = answerOption(commandLine, processArguments(argc, argv))) return *status;
    if (!displayAvailable()) return runWithoutDisplay(commandLine);
    ProgramWindows windows;
    setDesktop(windows);
    return runApplication([&] { windows.start(commandLine); });
} catch (const std::exception&) {
    brasquelin::writeMessage(brasquelin::errorTitle, brasquelin::currentRunTimeError().reportWhileLoading({}));
    return 1;
}
