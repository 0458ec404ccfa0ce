#include "editorCommands.h"

#include <wx/frame.h>
#include <wx/textctrl.h>

#include <filesystem>
#include <optional>
#include <stdexcept>

#include "editor/editorListView.h"
#include "editor/editorMenus.h"
#include "editor/editorState.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "stopwatch.h"

namespace brasquelin {

namespace {

void choose(wxFrame& frame, int id) {
    wxCommandEvent event(wxEVT_MENU, id);
    frame.ProcessWindowEvent(event);
}

/// The check begins a moment after the last change; it leaves a finding behind, for the profile has one.
void timeCheck(Stopwatch& watch) {
    watch.timeLongestPause("check", [] { return !editorState.problems.empty(); });
    editorState.problems.clear();
}

std::optional<std::filesystem::path> keptFile() {
    for (const auto& file : std::filesystem::directory_iterator(exeDirectory())) {
        if (file.path().extension() == ".kept") return file.path();
    }
    return std::nullopt;
}

}  // namespace

void timeEditor() {
    desktop().showWindow(ProgramWindow::createProfile, false);
    auto& frame = dynamic_cast<wxFrame&>(*wxWindow::FindWindowByName("frmCreateProfile"));
    auto& list = dynamic_cast<EditorListView&>(*wxWindow::FindWindowByName("listCommand", &frame));
    Stopwatch watch(frame);
    const auto run = [&](const char* what, int id) { watch.time(what, [&] { choose(frame, id); }); };
    run("open", wxID_OPEN);
    timeCheck(watch);
    const auto& lines = editorState.document.listCommand;
    const std::size_t count = lines.size();
    list.selectLine(count / 8 * 4);  // where a group begins
    editorState.activeList = EditorList::commands;
    run("remove a line", mnuRemove);
    if (lines.size() >= count) throw std::runtime_error("nothing was removed");
    timeCheck(watch);
    run("undo", wxID_UNDO);
    run("redo", wxID_REDO);
    run("copy", wxID_COPY);
    run("paste", wxID_PASTE);
    watch.timeLongestPause("keep", [] { return keptFile().has_value(); });
    std::filesystem::remove(*keptFile());
    auto& name = dynamic_cast<wxTextCtrl&>(*wxWindow::FindWindowByName("profileName", &frame));
    watch.time("type into the name", [&] { name.SetValue("Renamed"); });
    timeCheck(watch);
    watch.timeLongestPause("keep", [] { return keptFile().has_value(); });
    run("save", wxID_SAVE);
    list.selectAll();
    run("remove all", mnuRemove);
    run("undo all", wxID_UNDO);
}

}  // namespace brasquelin
