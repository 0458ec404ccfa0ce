#include "platform/wx/rememberedPlace.h"

#include <wx/toplevel.h>

#include <optional>
#include <sstream>
#include <utility>

#include "platform/preferences.h"
#include "platform/wx/placement.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

/// "x y width height", and "maximized" where it is so.
std::optional<wxRect> placeOfText(const std::string& text) {
    std::istringstream numbers(text);
    wxRect place;
    if (!(numbers >> place.x >> place.y >> place.width >> place.height)) return std::nullopt;
    return place;
}

std::string textOfPlace(const wxRect& place, bool isMaximized) {
    std::ostringstream text;
    text << place.x << ' ' << place.y << ' ' << place.width << ' ' << place.height;
    if (isMaximized) text << " maximized";
    return text.str();
}

}  // namespace

RememberedPlace::RememberedPlace(wxTopLevelWindow& window, std::string key)
    : window_(window), key_(std::move(key)), saved_(preference(preferencesFile(), key_)) {
    const auto place = placeOfText(saved_);
    if (place) {
        placeAt(window_, *place);
    } else {
        placeOnScreen(window_);
    }
    place_ = window_.GetRect();
    if (place && saved_.ends_with("maximized")) window_.Maximize();
    const auto following = [this](wxEvent& event) {
        event.Skip();
        follow();
    };
    window_.Bind(wxEVT_MOVE, following);
    window_.Bind(wxEVT_SIZE, following);
}

void RememberedPlace::follow() {
    if (!window_.IsShown() || window_.IsIconized()) return;
    isKnown_ = true;
    isMaximized_ = window_.IsMaximized();
    if (!isMaximized_) place_ = window_.GetRect();
}

void RememberedPlace::save() const {
    const std::string text = textOfPlace(place_, isMaximized_);
    if (!isKnown_ || text == saved_) return;
    try {
        setPreference(preferencesFile(), key_, text);
    } catch (const RunTimeError&) {  // no reason to keep the window open
    }
}

}  // namespace brasquelin
