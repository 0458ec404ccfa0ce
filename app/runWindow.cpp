#include "app/runWindow.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/programWindows.h"
#include "batch/frmRun.h"
#include "batch/runFiles.h"
#include "batch/wireLink.h"
#include "platform/preferences.h"
#include "platform/wx/application.h"

namespace brasquelin {

namespace {

/// The wire to the first runner. Notes where the log is, which outlives it.
class FirstLink : public WireLink {
  public:
    FirstLink(std::unique_ptr<Wire> wire, std::string& log) : WireLink(std::move(wire)), log_(log) {}
    std::vector<RunMessage> receive() override {
        std::vector<RunMessage> messages = WireLink::receive();
        for (const auto& message : messages) {
            if (message.kind == RunMessageKind::logFile) log_ = message.text;
        }
        return messages;
    }

  private:
    std::string& log_;
};

}  // namespace

std::optional<int> answerRunWindow(std::string_view commandLine) {
    const auto blank = commandLine.find(' ');
    if (commandLine.substr(0, blank) != runWindowOption) return std::nullopt;
    auto wire = joinPartner(blank == std::string_view::npos ? "" : commandLine.substr(blank + 1));
    if (!wire) return 2;
    std::string log;
    std::unique_ptr<RunLink> link = std::make_unique<FirstLink>(std::move(wire), log);
    const StartRunner startRunner = [] { return std::make_unique<WireLink>(startPartner(runJobsOption)); };
    ProgramWindows windows;
    setDesktop(windows);
    const int status = runApplication([&] { showRunWindow(std::move(link), startRunner, preferencesFile()); });
    removeTemporaryRun(log);
    return status;
}

}  // namespace brasquelin
