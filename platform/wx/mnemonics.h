// The underlined letters of buttons, boxes and menus.
#pragma once

class wxMenu;
class wxMenuBar;
class wxTopLevelWindow;

namespace brasquelin {

/// Wherever in the window the focus is: Windows itself looks for them only in the innermost panel that has the focus.
/// Covers what the window has by now and gets later.
void bindMnemonics(wxTopLevelWindow& window);

/// Underlines a letter of each entry that has none yet, the first that is not taken; in submenus, too.
void giveMnemonics(wxMenu& menu);
void giveMnemonics(wxMenuBar& bar);

}  // namespace brasquelin
