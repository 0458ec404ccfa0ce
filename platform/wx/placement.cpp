#include "platform/wx/placement.h"

#include <wx/display.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace brasquelin {

BorderSizes borderSizes;

namespace {

/// A window that may go while others are open over it is none to stand over.
bool carriesOthers(const wxTopLevelWindow& window) {
    return window.IsShown() && !window.IsIconized() && !window.IsBeingDeleted() &&
           !window.HasExtraStyle(wxWS_EX_TRANSIENT);
}

wxTopLevelWindow* newestBut(const wxTopLevelWindow* except) {
    for (auto node = wxTopLevelWindows.GetLast(); node; node = node->GetPrevious()) {
        auto* window = static_cast<wxTopLevelWindow*>(node->GetData());
        if (window != except && carriesOthers(*window)) return window;
    }
    return nullptr;
}

/// Where a window belongs: around a point, within the work area of a screen.
struct Place {
    wxPoint centre;
    wxRect area;

    wxPoint cornerFor(const wxSize& size) const {
        const wxPoint corner = centre - size / 2;
        return {std::clamp(corner.x, area.x, std::max(area.x, area.x + area.width - size.x)),
                std::clamp(corner.y, area.y, std::max(area.y, area.y + area.height - size.y))};
    }
};

Place placeOf(const wxTopLevelWindow& window) {
    const wxTopLevelWindow* below = newestBut(&window);
    const int screen = wxDisplay::GetFromWindow(below ? below : &window);
    const wxRect area = wxDisplay(static_cast<unsigned>(std::max(screen, 0))).GetClientArea();
    const wxRect around = below ? below->GetScreenRect() : area;
    return {around.GetPosition() + around.GetSize() / 2, area};
}

/// Some window managers put a window into a corner although it has a place, and several events pass until it stands.
/// Its place is looked at when they have; afterwards it is the user who moves the window.
class FirstPlace {
  public:
    FirstPlace(wxTopLevelWindow& window, const Place& place) : window_(window), place_(place) {
        settled_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { correct(); });
    }

    void shown() {
        watch_.Start();
        isUp_ = true;
        settled_.StartOnce(settling);
    }
    void changed() {
        if (isUp_ && watch_.Time() < comingUp) settled_.StartOnce(settling);
    }

  private:
    static constexpr int settling = 50;  // milliseconds
    static constexpr long comingUp = 1000;

    void correct() {
        constexpr int tolerance = 4;
        if (!window_.IsShown() || window_.IsMaximized() || corrections_ == 0) return;
        const wxPoint wanted = place_.cornerFor(window_.GetSize());
        const wxPoint off = window_.GetPosition() - wanted;
        if (std::abs(off.x) <= tolerance && std::abs(off.y) <= tolerance) return;
        --corrections_;
        window_.Move(wanted);
    }

    wxTopLevelWindow& window_;
    Place place_;
    wxTimer settled_;
    wxStopWatch watch_;
    bool isUp_ = false;
    int corrections_ = 2;
};

void keepAt(wxTopLevelWindow& window, const Place& place) {
    const auto first = std::make_shared<FirstPlace>(window, place);
    window.Bind(wxEVT_SHOW, [first](wxShowEvent& event) {
        if (event.IsShown()) first->shown();
        event.Skip();
    });
    window.Bind(wxEVT_MOVE, [first](wxMoveEvent& event) {
        first->changed();
        event.Skip();
    });
    window.Bind(wxEVT_SIZE, [first](wxSizeEvent& event) {
        first->changed();
        event.Skip();
    });
}

/// GTK and the window managers centre a dialog over its parent themselves; one that was moved before it is up loses its
/// place under some of them.
bool isPlacedByDesktop([[maybe_unused]] const wxTopLevelWindow& window) {
#ifdef __WXGTK__
    return window.GetParent() && window.HasExtraStyle(wxTOPLEVEL_EX_DIALOG);
#else
    return false;
#endif
}

}  // namespace

wxWindow* newestWindow() {
    return newestBut(nullptr);
}

namespace {

void put(wxTopLevelWindow& window, wxSize size, const Place& place) {
    size.DecTo(place.area.GetSize());
    window.SetMinSize(wxSize(std::min(window.GetMinWidth(), size.x), std::min(window.GetMinHeight(), size.y)));
    if (size != window.GetSize()) window.SetSize(size);
    if (!isPlacedByDesktop(window)) window.Move(place.cornerFor(size));
    keepAt(window, place);
}

}  // namespace

void placeOnScreen(wxTopLevelWindow& window) {
    put(window, window.GetSize(), placeOf(window));
}

void placeAt(wxTopLevelWindow& window, const wxRect& place) {
    const wxPoint centre = place.GetPosition() + place.GetSize() / 2;
    const int screen = wxDisplay::GetFromPoint(centre);
    wxSize size = place.GetSize();
    size.IncTo(window.GetMinSize());
    put(window, size, {centre, wxDisplay(static_cast<unsigned>(std::max(screen, 0))).GetClientArea()});
}

void keepCentred(wxTopLevelWindow& window) {
    keepAt(window, placeOf(window));
}

}  // namespace brasquelin
