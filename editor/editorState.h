// The profile editor's state: the document and what is kept beside it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/editedDocument.h"
#include "editor/keptProfiles.h"
#include "editor/problems.h"

namespace brasquelin {

struct EditorState {
    EditedDocument edited;
    const ProfileDocument& document = edited.document();
    std::string keptFile;                      // keeps what is not saved of it; empty while there is none
    KeptOffer lastOffer;                       // so that a large file is not read with every change
    EditorList activeList = EditorList::none;  // last right-clicked or double-clicked
    std::optional<DocumentPlace> inForm;       // the group that a form is to change; none while it makes a new one
    std::vector<Problem> problems;             // of the document as it was checked last
    std::vector<std::string> lstVar;           // the references that the next value prompt offers
    std::vector<std::string> newPlugins;       // lines that were added; their variables are not known yet
    std::string status;                        // what the window tells below its lists
    std::function<void()> statusChanged;       // set by the window

    void reset() {
        std::destroy_at(this);
        std::construct_at(this);
    }
};
extern EditorState editorState;

/// Shown at once, also while something else goes on.
void tellStatus(std::string status);

}  // namespace brasquelin
