// One measurement of the windows per run:
//   empty            shows an empty window of the toolkit and ends
//   main DIRECTORY   shows the main window of the program in this directory and ends
//   edit DIRECTORY   prints what each command of the job list takes with 100,000 lines
//   jobs DIRECTORY   appends 100,000 lines to the job list, shows them and prints both times
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/jobList.h"
#include "app/jobListView.h"
#include "app/programWindows.h"
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

void showEmptyWindow() {
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(1060, 560));
    new wxPanel(frame);
    watchPainting(*frame);
    frame->Show();
    runUntilPainted();
    done();
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
    std::printf("%ld lines: %ld ms to append, %ld ms until shown\n", shown, appended, milliseconds(start));
    done();
}

void editJobs() {
    timeJobCommands(dynamic_cast<wxFrame&>(showMainWindow()));
    done();
}

}  // namespace
}  // namespace brasquelin

int main(int argc, char** argv) {
    using namespace brasquelin;
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "empty") return runApplication(showEmptyWindow);
    if (argc != 3) return 2;
    setProgramDirectory(argv[2]);
    ProgramWindows windows;
    setDesktop(windows);
    if (mode == "edit") return runApplication(editJobs);
    if (mode == "jobs") return runApplication(showJobs);
    return runApplication([] {
        showMainWindow();
        done();
    });
}
