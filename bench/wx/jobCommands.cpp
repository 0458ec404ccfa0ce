#include "jobCommands.h"

#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/textctrl.h>

#include <filesystem>
#include <functional>
#include <numeric>
#include <string>

#include "app/jobCommands.h"
#include "app/jobFiles.h"
#include "app/jobList.h"
#include "app/jobListView.h"
#include "app/keptJobs.h"
#include "platform/wx/wxText.h"
#include "stopwatch.h"

namespace brasquelin {

namespace {

constexpr std::size_t jobCount = 100'000;

/// By its place in the menu, for the captions change.
void choose(wxFrame& frame, JobCommandKind kind) {
    auto command = jobCommands().begin();
    for (const auto* item : frame.GetMenuBar()->GetMenu(1)->GetMenuItems()) {
        if (item->IsSeparator()) continue;
        wxCommandEvent event(wxEVT_MENU, item->GetId());
        if (command->kind == kind) frame.ProcessWindowEvent(event);
        ++command;
    }
}

Jobs block(std::size_t begin, std::size_t end) {
    Jobs jobs(end - begin);
    std::iota(jobs.begin(), jobs.end(), begin);
    return jobs;
}

/// Every command but those that ask.
void timeWith(wxFrame& frame, JobListView& list, Stopwatch& watch, const std::string& which,
              const std::function<void()>& select) {
    using enum JobCommandKind;
    const auto run = [&](const char* what, JobCommandKind command) {
        watch.time(which + ": " + what, [&] { choose(frame, command); });
    };
    const auto withUndo = [&](const char* what, JobCommandKind command) {
        select();
        run(what, command);
        run("undo", undo);
        run("redo", redo);
        choose(frame, undo);
    };
    watch.time(which + ": menu", [&] {
        wxMenuEvent event(wxEVT_MENU_OPEN, 0, frame.GetMenuBar()->GetMenu(1));
        frame.ProcessWindowEvent(event);
    });
    withUndo("duplicate", duplicate);
    withUndo("cut", cut);
    withUndo("paste", paste);
    withUndo("delete", remove);
    withUndo("move up", moveUp);
    withUndo("move down", moveDown);
    select();
    run("copy", copy);
    watch.time(which + ": as text to be dragged", [&] { (void)textOfJobs(list.selectedJobs()); });
}

void timeList(wxFrame& frame, JobListView& list, Stopwatch& watch) {
    const std::string file = (std::filesystem::temp_directory_path() / "brasquelin-bench").string();
    watch.time("edit", [] { changeJob(jobCount / 2, std::string(500, 'x')); });
    watch.time("undo", [&] { choose(frame, JobCommandKind::undo); });
    watch.time("drag all but one to the end", [&] { moveJobs(block(0, jobCount - 1), jobCount); });
    watch.time("keep", keepJobs);
    for (const char* extension : {".bat", ".sh"}) {
        watch.time(std::string("save") + extension, [&] { writeJobFile(file + extension); });
        watch.time(std::string("open") + extension, [&] { appendJobFile(file + extension); });
        watch.time("undo", [&] { choose(frame, JobCommandKind::undo); });
        std::filesystem::remove(file + extension);
    }
    choose(frame, JobCommandKind::find);
    auto& box = dynamic_cast<wxTextCtrl&>(*wxWindow::FindWindowByName("txtFind", &frame));
    for (const char* text : {"f", "fi", "file9", "9999", "nowhere", ""}) {
        watch.time("find \"" + std::string(text) + "\"", [&] { box.SetValue(text); });
    }
    watch.time("find \"1\" with all selected", [&] {
        list.selectAll();
        box.SetValue("1");
    });
    watch.time("clear", [] { clearJobs(); });
    watch.time("undo", [&] { choose(frame, JobCommandKind::undo); });
}

}  // namespace

void timeJobCommands(wxFrame& frame) {
    auto& list = dynamic_cast<JobListView&>(*wxWindow::FindWindowByName("JobList", &frame));
    for (std::size_t i = 0; i < jobCount; ++i) {
        jobList.append("convert --input /data/file" + std::to_string(i) + " --output /out");
    }
    wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
    Stopwatch watch(frame);
    timeWith(frame, list, watch, "one", [&] { list.selectLine(jobCount / 2); });
    timeWith(frame, list, watch, "4,000", [&] { list.selectJobs(block(jobCount / 2, jobCount / 2 + 4000)); });
    timeWith(frame, list, watch, "all but the ends", [&] { list.selectJobs(block(1, jobCount - 1)); });
    watch.time("select all", [&] { list.selectAll(); });
    timeList(frame, list, watch);
}

}  // namespace brasquelin
