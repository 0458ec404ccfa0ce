// The profile editor's state: the document and what is kept beside it.
#pragma once

#include <string>
#include <vector>

#include "editor/problems.h"

namespace brasquelin {

struct EditorState {
    ProfileDocument document;
    EditorList activeList = EditorList::none;  // last right-clicked or double-clicked
    std::vector<Problem> problems;             // of the document as it was checked last
    std::vector<std::string> lstVar;           // the references that the next value prompt offers

    void reset() { *this = EditorState(); }
};
extern EditorState editorState;

}  // namespace brasquelin
