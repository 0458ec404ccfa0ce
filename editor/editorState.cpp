#include "editor/editorState.h"

namespace brasquelin {

EditorState editorState;

}  // namespace brasquelin
