#include "app/runWindow.h"

#include <memory>
#include <utility>

#include "app/programWindows.h"
#include "batch/frmRun.h"
#include "batch/wireLink.h"
#include "platform/paths.h"
#include "platform/wx/application.h"

namespace brasquelin {

std::optional<int> answerRunWindow(std::string_view commandLine) {
    const auto blank = commandLine.find(' ');
    if (commandLine.substr(0, blank) != runWindowOption) return std::nullopt;
    auto wire = joinPartner(blank == std::string_view::npos ? "" : commandLine.substr(blank + 1));
    if (!wire) return 2;
    std::unique_ptr<RunLink> link = std::make_unique<WireLink>(std::move(wire));
    const StartRunner startRunner = [] { return std::make_unique<WireLink>(startPartner(runJobsOption)); };
    ProgramWindows windows;
    setDesktop(windows);
    return runApplication(
        [&] { showRunWindow(std::move(link), startRunner, joinPath(programDirectory(), "brasquelin.window")); });
}

}  // namespace brasquelin
