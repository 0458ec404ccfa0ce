// Pop-up menus, behind a seam so that tests can choose from them.
#pragma once

#include <functional>

class wxMenu;
class wxPoint;
class wxWindow;

namespace brasquelin {

using MenuPresenter = std::function<void(wxWindow& window, wxMenu& menu, const wxPoint& position)>;

/// Shows the menu at a position in the window and returns when it has closed.
void popUpMenu(wxWindow& window, wxMenu& menu, const wxPoint& position);

/// An empty function brings the toolkit's own menus back.
void setMenuPresenter(MenuPresenter presenter);

}  // namespace brasquelin
