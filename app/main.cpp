#include <string>

#include "app/frmMain.h"
#include "app/registerWindows.h"
#include "app/startUp.h"
#include "platform/paths.h"
#include "platform/wx/application.h"
#include "platform/wx/wxDesktop.h"

int main(int argc, char** argv) {
    using namespace brasquelin;
    const std::string commandLine = processCommandLine(argc, argv);
    if (!displayAvailable()) return runWithoutDisplay(commandLine);
    WxDesktop windows;
    setDesktop(windows);
    registerWindows(windows);
    return runApplication([&] { startWithMainWindow(commandLine); });
}
