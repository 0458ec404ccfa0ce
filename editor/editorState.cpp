#include "editor/editorState.h"

#include <utility>

namespace brasquelin {

EditorState editorState;

void tellStatus(std::string status) {
    editorState.status = std::move(status);
    if (editorState.statusChanged) editorState.statusChanged();
}

}  // namespace brasquelin
