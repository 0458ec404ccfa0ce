#include "platform/wx/placement.h"

#include <wx/display.h>
#include <wx/toplevel.h>

#include <algorithm>

namespace brasquelin {

BorderSizes borderSizes;

namespace {

/// The window to stand over: the newest visible one.
wxTopLevelWindow* windowBelow(const wxTopLevelWindow& window) {
    for (auto node = wxTopLevelWindows.GetLast(); node; node = node->GetPrevious()) {
        auto* other = static_cast<wxTopLevelWindow*>(node->GetData());
        if (other != &window && other->IsShown() && !other->IsIconized()) return other;
    }
    return nullptr;
}

}  // namespace

void placeOnScreen(wxTopLevelWindow& window) {
    const wxTopLevelWindow* below = windowBelow(window);
    const int screen = wxDisplay::GetFromWindow(below ? below : &window);
    const wxRect area = wxDisplay(static_cast<unsigned>(std::max(screen, 0))).GetClientArea();
    wxSize size = window.GetSize();
    size.DecTo(area.GetSize());
    wxRect place = wxRect(size).CentreIn(below ? below->GetScreenRect() : area);
    place.x = std::clamp(place.x, area.x, area.x + area.width - size.x);
    place.y = std::clamp(place.y, area.y, area.y + area.height - size.y);
    window.SetMinSize(wxSize(std::min(window.GetMinWidth(), size.x), std::min(window.GetMinHeight(), size.y)));
    window.SetSize(place);
}

}  // namespace brasquelin
