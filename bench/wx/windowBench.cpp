// One measurement of the windows per run:
//   list DIRECTORY             appends 100,000 lines to the job list, shows them and prints both times
//   jobs DIRECTORY             prints what each command of the job list takes with 100,000 lines
//   editor DIRECTORY PROFILE   prints what each command of the editor takes with this profile
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "app/jobList.h"
#include "app/jobListView.h"
#include "app/programWindows.h"
#include "editorCommands.h"
#include "engine/runProfile.h"
#include "jobCommands.h"
#include "platform/paths.h"
#include "platform/wx/application.h"
#include "text/runTimeError.h"

namespace brasquelin {
namespace {

bool painted = false;

/// Notes the first paint of anything in the window.
void watchPainting(wxWindow& window) {
    window.Bind(wxEVT_PAINT, [](wxPaintEvent& event) {
        painted = true;
        event.Skip();
    });
    for (auto* child : window.GetChildren()) watchPainting(*child);
}

void runUntilPainted() {
    while (!painted) wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
}

/// A measurement ends here: tearing down is not part of it.
[[noreturn]] void done() {
    std::fflush(stdout);
    std::_Exit(0);
}

wxWindow& showMainWindow() {
    dynamic_cast<ProgramWindows&>(desktop()).start({});
    wxWindow& frame = *wxWindow::FindWindowByName("frmMain");
    watchPainting(frame);
    runUntilPainted();
    return frame;
}

long milliseconds(std::chrono::steady_clock::time_point start) {
    const auto passed = std::chrono::steady_clock::now() - start;
    return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

void showJobs() {
    wxWindow& frame = showMainWindow();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100'000; ++i) appendJob("convert --input /data/file" + std::to_string(i) + " --output /out");
    const long appended = milliseconds(start);
    painted = false;
    frame.Refresh();
    runUntilPainted();
    const long shown = dynamic_cast<JobListView&>(*wxWindow::FindWindowByName("JobList", &frame)).GetItemCount();
    if (shown != 100'000) std::exit(1);
    std::printf("%8ld ms  append\n%8ld ms  until shown\n", appended, milliseconds(start));
    done();
}

void timeJobs() {
    timeJobCommands(dynamic_cast<wxFrame&>(showMainWindow()));
    done();
}

/// Its file dialogs are answered with one profile.
class BenchWindows : public ProgramWindows {
  public:
    explicit BenchWindows(std::string profile) : profile_(std::move(profile)) {}

  protected:
    ChosenFile chooseFile(const FileDialogRequest&) override { return {profile_}; }

  private:
    std::string profile_;
};

}  // namespace
}  // namespace brasquelin

int main(int argc, char** argv) {
    using namespace brasquelin;
    if (argc < 3) return 2;
    const std::string mode = argv[1];
    setProgramDirectory(argv[2]);
    BenchWindows windows(argc > 3 ? argv[3] : "");
    setDesktop(windows);
    if (mode == "jobs") return runApplication(timeJobs);
    if (mode == "list") return runApplication(showJobs);
    return runApplication([] {
        showMainWindow();
        timeEditor();
        done();
    });
}
