#include "platform/wx/twipScale.h"

#include <wx/dcclient.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include <algorithm>
#include <cmath>

#include "platform/wx/dropDown.h"

namespace brasquelin {

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerCharacter = 90;
constexpr double twipsPerTextBox = 285;
constexpr double twipsPerDropDown = 350;

int bestHeight(wxWindow* control) {
    const int height = control->GetBestSize().y;
    control->Destroy();
    return height;
}

}  // namespace

TwipScale::TwipScale(wxWindow& window) {
    const wxSize dpi = window.FromPhys(window.GetDPI());  // pixels as the toolkit counts them
    const int text = std::max(bestHeight(new wxTextCtrl(&window, wxID_ANY)), window.GetCharHeight() + 8);
    const int dropDown = bestHeight(new DropDown(&window, {}, ""));
    x_ = std::max(dpi.x / twipsPerInch, window.GetCharWidth() / twipsPerCharacter);
    y_ = std::max({dpi.y / twipsPerInch, text / twipsPerTextBox, dropDown / twipsPerDropDown});
}

int TwipScale::x(int twips) const {
    return static_cast<int>(std::lround(twips * x_));
}

int TwipScale::y(int twips) const {
    return static_cast<int>(std::lround(twips * y_));
}

wxRect TwipScale::rect(int left, int top, int width, int height) const {
    return wxRect(wxPoint(x(left), y(top)), wxSize(x(left + width) - x(left), y(top + height) - y(top)));
}

}  // namespace brasquelin
