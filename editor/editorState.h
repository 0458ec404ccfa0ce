// The profile editor's state: the document and what is kept beside it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "editor/editedDocument.h"
#include "editor/problems.h"

namespace brasquelin {

struct EditorState {
    EditedDocument edited;
    const ProfileDocument& document = edited.document();
    std::string keptFile;                      // keeps what is not saved of it; empty while there is none
    EditorList activeList = EditorList::none;  // last right-clicked or double-clicked
    std::vector<Problem> problems;             // of the document as it was checked last
    std::vector<std::string> lstVar;           // the references that the next value prompt offers

    void reset() {
        std::destroy_at(this);
        std::construct_at(this);
    }
};
extern EditorState editorState;

}  // namespace brasquelin
