// The commands that edit, save and open the job list, offered by the menu bar, below the others in the pop-up menu, and
// by keys.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/jobListEditing.h"

namespace brasquelin {

enum class JobCommandKind {
    undo,
    redo,
    edit,
    duplicate,
    cut,
    copy,
    paste,
    remove,
    moveUp,
    moveDown,
    selectAll,  // the window's own, as is the next
    find,
    open,
    saveAs,
};

struct JobCommand {
    JobCommandKind kind;
    std::string_view menuItem;
    std::string_view caption;  // with its mnemonic
    std::string_view shortcut;
    std::string_view otherShortcut;  // empty without one
    bool separatorBehind;
    bool isOfFile = false;  // in the menu of the list as a whole
};

/// In the order in which they are shown.
const std::vector<JobCommand>& jobCommands();

/// What the commands work on. A list that hides jobs is not arranged, for what is seen would not tell how.
struct JobSelection {
    Jobs jobs;
    bool someAreHidden = false;
};

/// The caption, with the step for "Undo" and "Redo".
std::string captionOf(const JobCommand& command);

/// False for what could do nothing now, and for whatever changes the list while a file is run or the batch is started.
bool isEnabled(JobCommandKind command, const JobSelection& selection);

/// Runs a command that is enabled. Gives the jobs to be selected then; nothing leaves the selection as it is.
std::optional<Jobs> runJobCommand(JobCommandKind command, const JobSelection& selection);

/// The list may be changed by hand now.
bool jobListIsEditable();

}  // namespace brasquelin
