#include "app/jobListControl.h"

#include <wx/accel.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/textentry.h>

#include <algorithm>
#include <string>

#include "app/dropFiles.h"
#include "app/jobList.h"
#include "app/jobListView.h"
#include "platform/wx/findBar.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

constexpr int firstId = wxID_HIGHEST + 100;

int idOf(JobCommandKind command) {
    return firstId + static_cast<int>(command);
}

wxString labelOf(const JobCommand& command) {
    return toWx(captionOf(command)) + "\t" + toWx(command.shortcut);
}

bool isPressed(std::string_view shortcut, const wxKeyEvent& event) {
    wxAcceleratorEntry key;
    if (shortcut.empty() || !key.FromString(toWx(shortcut))) return false;
    int modifiers = 0;
    if (event.ControlDown()) modifiers |= wxACCEL_CTRL;
    if (event.ShiftDown()) modifiers |= wxACCEL_SHIFT;
    if (event.AltDown()) modifiers |= wxACCEL_ALT;
    int pressed = event.GetKeyCode();
    if (pressed == WXK_NUMPAD_DELETE) pressed = WXK_DELETE;
    return pressed == key.GetKeyCode() && modifiers == key.GetFlags();
}

/// The commands that are wanted; separators stand between them only.
template <typename Wanted>
void append(wxMenu& menu, Wanted wanted) {
    bool separates = false;
    for (const auto& command : jobCommands()) {
        if (!wanted(command)) continue;
        if (separates) menu.AppendSeparator();
        menu.Append(idOf(command.kind), labelOf(command));
        separates = command.separatorBehind;
    }
}

const JobCommand* commandOf(const wxKeyEvent& event) {
    for (const auto& command : jobCommands()) {
        if (isPressed(command.shortcut, event) || isPressed(command.otherShortcut, event)) return &command;
    }
    return nullptr;
}

/// What the keys do in a box of text.
bool isForText(JobCommandKind command) {
    using enum JobCommandKind;
    return command == cut || command == copy || command == paste || command == remove || command == selectAll;
}

}  // namespace

JobListControl::JobListControl(wxFrame& frame, JobListView& list, wxSizer& place)
    : frame_(frame), list_(list), place_(place) {
    bindCommands();
    letJobsBeDragged();
}

wxMenu* JobListControl::makeMenu() {
    auto* menu = new wxMenu;
    menus_.push_back(menu);
    append(*menu, [](const JobCommand& command) { return !command.isOfFile; });
    return menu;
}

void JobListControl::appendFileCommands(wxMenu& menu) {
    menus_.push_back(&menu);
    append(menu, [](const JobCommand& command) { return command.isOfFile; });
}

void JobListControl::appendCommands(wxMenu& menu) const {
    append(menu, [](const JobCommand&) { return true; });
    enableCommands(menu);
}

void JobListControl::enableCommands(wxMenu& menu) const {
    const JobSelection selected = selection();
    for (const auto& command : jobCommands()) {
        auto* item = menu.FindItem(idOf(command.kind));
        if (!item) continue;
        if (const wxString label = labelOf(command); item->GetItemLabel() != label) item->SetItemLabel(label);
        item->Enable(isEnabled(command.kind, selected));
    }
}

/// The menu bar's are brought up to date when the menu opens: asking at every idle moment would take too long.
void JobListControl::bindCommands() {
    for (const auto& command : jobCommands()) {
        frame_.Bind(
            wxEVT_MENU, [this, kind = command.kind](wxCommandEvent&) { run(kind); }, idOf(command.kind));
    }
    frame_.Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        auto* menu = event.GetMenu();
        if (std::find(menus_.begin(), menus_.end(), menu) != menus_.end()) enableCommands(*menu);
        event.Skip();
    });
    frame_.Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { handleKey(event); });
}

/// Before the list, which would take some of the keys for others.
void JobListControl::handleKey(wxKeyEvent& event) {
    const bool inText = dynamic_cast<wxTextEntryBase*>(wxWindow::FindFocus()) != nullptr;
    if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers() && findBar_ && findBar_->IsShown()) {
        return closeFind();
    }
    const JobCommand* command = commandOf(event);
    if (!command || (inText && isForText(command->kind))) return event.Skip();
    if (!inText || command->kind == JobCommandKind::find) run(command->kind);
}

JobSelection JobListControl::selection() const {
    return {list_.selectedJobs(), list_.filter().hides()};
}

void JobListControl::run(JobCommandKind command) {
    list_.showChanges();
    if (command == JobCommandKind::find) return openFind();
    if (command == JobCommandKind::selectAll) return list_.selectAll();
    const JobSelection selected = selection();
    if (!isEnabled(command, selected)) return;
    if (const auto changed = runJobCommand(command, selected)) show(*changed, command);
}

/// What was changed is seen, where need be by showing all jobs again.
void JobListControl::show(const Jobs& changed, JobCommandKind by) {
    list_.showChanges();
    const JobFilter& filter = list_.filter();
    const bool removed = by == JobCommandKind::remove || by == JobCommandKind::cut;
    if (filter.hides() && removed && !changed.empty() && filter.rowCount() > 0) {
        return list_.selectLine(std::min(filter.rowOf(changed.front()), filter.rowCount() - 1));
    }
    if (!removed && !changed.empty() && filter.rowsOf(changed).empty()) closeFind();
    list_.selectJobs(changed);
}

void JobListControl::letJobsBeDragged() {
    DragActions actions;
    actions.text = [this] { return textOfJobs(list_.selectedJobs()); };
    actions.moveTo = [this](std::size_t before) {
        const JobSelection selected = selection();
        if (!jobListIsEditable() || selected.someAreHidden) return;
        show(moveJobs(selected.jobs, std::min(before, jobList.size())), JobCommandKind::moveDown);
    };
    actions.insert = [this](std::size_t before, const std::string& text) {
        if (!jobListIsEditable()) return;
        const std::size_t row = std::min(before, list_.filter().rowCount());
        const std::size_t job = row < list_.filter().rowCount() ? list_.filter().jobOf(row) : jobList.size();
        show(insertJobs(job, jobsOfText(text), "Drop"), JobCommandKind::paste);
    };
    actions.open = [this](const std::vector<std::string>& paths) { dropFiles(frame_, paths); };
    list_.letLinesBeDragged(std::move(actions));
}

void JobListControl::openFind() {
    if (!findBar_) {
        findBar_ = new FindBar(&frame_, "Show all",
                               {.search = [this](const std::string& text) { find(text); },
                                .forward = [this] { list_.SetFocus(); },
                                .back = {},
                                .close = [this] { closeFind(); }});
        place_.Insert(placeBehindList(), findBar_, wxSizerFlags().Expand());
    }
    findBar_->open();
}

std::size_t JobListControl::placeBehindList() const {
    return static_cast<std::size_t>(place_.GetChildren().IndexOf(place_.GetItem(&list_))) + 1;
}

void JobListControl::closeFind() {
    if (!findBar_) return;
    list_.showOnly({});
    findBar_->close();
    list_.SetFocus();
}

void JobListControl::find(const std::string& text) {
    list_.showOnly(text);
    const JobFilter& filter = list_.filter();
    findBar_->tellFound(filter.hides() ? std::to_string(filter.rowCount()) + " of " + std::to_string(jobList.size())
                                       : std::string());
}

}  // namespace brasquelin
