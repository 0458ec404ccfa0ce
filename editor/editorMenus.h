// The menus of the profile editor.
#pragma once

#include <wx/defs.h>

#include "editor/profileDocument.h"

class wxMenu;
class wxMenuBar;

namespace brasquelin {

enum EditorMenuId {
    mnuAdd = wxID_HIGHEST + 1,
    mnuEdit,
    mnuRemove,
    mnuClear,
    mnuFor,
    mnuNext,
    mnuPreview,
    mnuForm,
    mnuLine,
    mnuFindNext,
    mnuFindBack
};

/// `recent` is the menu of the files that were open, still empty.
wxMenuBar* makeEditorMenus(wxMenu*& recent);

/// The menu of a list.
void fillListMenu(wxMenu& menu, EditorList which, bool hasSelection);

}  // namespace brasquelin
