#include "app/jobCommands.h"

#include <utility>

#include "app/batchFile.h"
#include "app/jobFiles.h"
#include "app/jobList.h"
#include "app/mainCommands.h"
#include "platform/desktop.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t mostEditedBytes = 64U << 10U;  // a box takes seconds for more

std::optional<Jobs> edit(std::size_t job) {
    auto line = desktop().askEdit("Command line of the job:", "Edit job", jobList.line(job));
    if (!line) return std::nullopt;
    return changeJob(job, onOneLine(*line));
}

void copy(const Jobs& jobs) {
    desktop().copyToClipboard(textOfJobs(jobs));
}

Jobs paste(const Jobs& selected) {
    const std::size_t before = selected.empty() ? jobList.size() : selected.back() + 1;
    return insertJobs(before, jobsOfText(desktop().clipboardText()), "Paste", selected);
}

Jobs cut(const Jobs& selected) {
    copy(selected);
    return removeJobs(selected, "Cut");
}

bool canMove(const JobSelection& selection) {
    return !selection.jobs.empty() && !selection.someAreHidden;
}

bool changesNothing(JobCommandKind command) {
    using enum JobCommandKind;
    return command == copy || command == selectAll || command == find;
}

}  // namespace

const std::vector<JobCommand>& jobCommands() {
    using enum JobCommandKind;
    static const std::vector<JobCommand> commands{
        {undo, "mnuUndo", "&Undo", "Ctrl+Z", "", false},
        {redo, "mnuRedo", "&Redo", "Ctrl+Y", "Ctrl+Shift+Z", true},
        {edit, "mnuEditJob", "&Edit ...", "F2", "", false},
        {duplicate, "mnuDuplicate", "Dupl&icate", "Ctrl+D", "", false},
        {cut, "mnuCut", "Cu&t", "Ctrl+X", "Shift+Del", false},
        {copy, "mnuCopy", "&Copy", "Ctrl+C", "Ctrl+Ins", false},
        {paste, "mnuPaste", "&Paste", "Ctrl+V", "Shift+Ins", false},
        {remove, "mnuDelete", "&Delete", "Del", "", true},
        {moveUp, "mnuMoveUp", "Move u&p", "Alt+Up", "", false},
        {moveDown, "mnuMoveDown", "Move do&wn", "Alt+Down", "", true},
        {selectAll, "mnuSelectAll", "Select &all", "Ctrl+A", "", false},
        {find, "mnuFind", "&Find", "Ctrl+F", "", true},
        {open, "mnuOpenJobs", "&Open a list of jobs ...", "Ctrl+O", "", false, true},
        {saveAs, "mnuSaveJobs", "&Save the list as ...", "Ctrl+S", "", false, true},
    };
    return commands;
}

std::string captionOf(const JobCommand& command) {
    const JobStep* step = nullptr;
    if (command.kind == JobCommandKind::undo) step = jobHistory.nextUndo();
    if (command.kind == JobCommandKind::redo) step = jobHistory.nextRedo();
    std::string caption(command.caption);
    if (step) caption.append(" ").append(step->name);
    return caption;
}

bool jobListIsEditable() {
    return mainCommandsEnabled() && !batchIsStarting();
}

bool isEnabled(JobCommandKind command, const JobSelection& selection) {
    using enum JobCommandKind;
    if (!changesNothing(command) && !jobListIsEditable()) return false;
    const Jobs& jobs = selection.jobs;
    switch (command) {
        case undo:
            return jobHistory.canUndo();
        case redo:
            return jobHistory.canRedo();
        case edit:
            return jobs.size() == 1 && jobList.line(jobs.front()).size() <= mostEditedBytes;
        case duplicate:
        case cut:
        case copy:
        case remove:
            return !jobs.empty();
        case moveUp:
            return canMove(selection) && jobs.front() > 0;
        case moveDown:
            return canMove(selection) && jobs.back() + 1 < jobList.size();
        case selectAll:
        case saveAs:
            return !jobList.empty();
        case open:
        case paste:
        case find:
            return true;
    }
    return false;
}

std::optional<Jobs> runJobCommand(JobCommandKind command, const JobSelection& selection) {
    using enum JobCommandKind;
    switch (command) {
        case undo:
            return undoJobStep();
        case redo:
            return redoJobStep();
        case edit:
            return brasquelin::edit(selection.jobs.front());
        case duplicate:
            return duplicateJobs(selection.jobs);
        case cut:
            return brasquelin::cut(selection.jobs);
        case copy:
            brasquelin::copy(selection.jobs);
            return std::nullopt;
        case paste:
            return brasquelin::paste(selection.jobs);
        case remove:
            return removeJobs(selection.jobs);
        case moveUp:
            return moveJobsUp(selection.jobs);
        case moveDown:
            return moveJobsDown(selection.jobs);
        case open:
            openJobs();
            break;
        case saveAs:
            saveJobsAs();
            break;
        case selectAll:
        case find:
            break;
    }
    return std::nullopt;
}

}  // namespace brasquelin
