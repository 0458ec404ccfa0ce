#include "app/programWindows.h"
#include "app/runWindow.h"
#include "platform/windowModule.h"
#include "platform/wx/application.h"

int brasquelinWindows(const char* commandLine) {
    using namespace brasquelin;
    if (const auto status = answerRunWindow(commandLine)) return *status;
    ProgramWindows windows;
    setDesktop(windows);
    return runApplication([&] { windows.start(commandLine); });
}
