#include "platform/wx/popUpMenu.h"

#include <wx/menu.h>
#include <wx/window.h>

#include <utility>

#include "platform/wx/application.h"

namespace brasquelin {

namespace {
MenuPresenter menuPresenter;
}

void popUpMenu(wxWindow& window, wxMenu& menu, const wxPoint& position) {
    if (menuPresenter) {
        menuPresenter(window, menu, position);
    } else {
        window.PopupMenu(&menu, position);
    }
    rethrowFromEvents();
}

void setMenuPresenter(MenuPresenter presenter) {
    menuPresenter = std::move(presenter);
}

}  // namespace brasquelin
