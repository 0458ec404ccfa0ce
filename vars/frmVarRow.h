// One row of a prompt window: the name and the control that fits its variable.
#pragma once

#include <wx/gdicmn.h>

#include <cstddef>

#include "vars/promptForm.h"

class wxButton;
class wxComboBox;
class wxScrolledWindow;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace brasquelin {

class TwipScale;

/// Shows a row of the form and writes into it what the user does. The controls of row 0 are named "varName", "textType"
/// and so on, those of row n "varName(n)".
class FrmVarRow {
  public:
    FrmVarRow(wxScrolledWindow& parent, PromptRow& row, std::size_t index);

    /// Places the controls; the value takes `extraWidth` more pixels than its place says.
    void place(const TwipScale& scale, int extraWidth, int scrolledBy);

    /// The bottom edge in twips of what the row shows.
    int bottom() const;

    PromptRow& model() const { return row_; }
    bool needsUser() const;
    void takeFocus();

  private:
    void makeName(wxScrolledWindow& parent, std::size_t index);
    void makeText(wxScrolledWindow& parent, std::size_t index, const char* name);
    void makeChoices(wxScrolledWindow& parent, std::size_t index);
    void makeBrowseButton(wxScrolledWindow& parent, std::size_t index);
    void browseForPath();

    PromptRow& row_;
    wxStaticText* varName_ = nullptr;
    wxTextCtrl* text_ = nullptr;
    wxComboBox* listType_ = nullptr;
    wxButton* getPath_ = nullptr;
};

/// The colour of the backdrops: a tint of the window's own colour that suits light and dark themes.
wxColour backdropColour(const wxWindow& window);

}  // namespace brasquelin
