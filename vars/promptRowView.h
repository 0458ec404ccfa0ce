// One row of a prompt window: the name and the control that fits its variable.
#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <string>

#include "vars/promptForm.h"

class wxButton;
class wxControl;
class wxScrolledWindow;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace brasquelin {

class DropDown;
class TwipScale;

/// What the columns take beyond their places, in pixels.
struct ExtraWidths {
    int name = 0;
    int value = 0;
};

/// Shows a row of the form and writes into it what the user does. The controls of row 0 are named "varName", "textType"
/// and so on, those of row n "varName(n)". A value that is longer than its box is marked; the tool tip shows it whole.
class PromptRowView {
  public:
    PromptRowView(wxScrolledWindow& parent, PromptRow& row, std::size_t index);

    /// Places the controls where those of the first row stand on their backdrop: the gaps between the controls of each
    /// kind differ, and over many rows they would leave their backdrops.
    void place(const TwipScale& scale, const ExtraWidths& extra, int scrolledBy);

    /// What the name's column must take beyond its place to show the whole name, in pixels.
    int missingNameWidth(const TwipScale& scale) const;

    PromptRow& model() const { return row_; }
    bool needsUser() const;
    void takeFocus();

  private:
    void makeName(wxScrolledWindow& parent, std::size_t index);
    void makeText(wxScrolledWindow& parent, std::size_t index, const char* name);
    void makeChoices(wxScrolledWindow& parent, std::size_t index);
    void makeGetPath(wxScrolledWindow& parent, std::size_t index);
    void browseForPath();
    wxControl* valueControl() const;
    std::string shownValue() const;
    void showWhetherItGoesOn();
    void makeSign();
    void placeSign();

    PromptRow& row_;
    std::size_t index_;
    wxStaticText* varName_ = nullptr;
    wxTextCtrl* text_ = nullptr;
    DropDown* listType_ = nullptr;
    wxButton* getPath_ = nullptr;
    wxStaticText* goesOn_ = nullptr;  // after a value that is longer than its box only
    int valueWidth_ = 0;              // of the box and that sign, in pixels
};

/// The colour of the backdrops: a tint of the window's own colour that suits light and dark themes.
wxColour backdropColour(const wxWindow& window);

}  // namespace brasquelin
