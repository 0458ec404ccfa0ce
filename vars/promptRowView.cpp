#include "vars/promptRowView.h"

#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/twipScale.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

wxString controlName(const char* name, std::size_t index) {
    return index == 0 ? wxString(name) : wxString::Format("%s(%zu)", name, index);
}

bool isDark(const wxColour& colour) {
    return colour.GetLuminance() < 0.5;
}

wxColour mixed(const wxColour& base, const wxColour& tint, double share) {
    const auto mix = [share](int from, int to) { return static_cast<unsigned char>(from + (to - from) * share); };
    return wxColour(mix(base.Red(), tint.Red()), mix(base.Green(), tint.Green()), mix(base.Blue(), tint.Blue()));
}

/// "archive (PathSave)", then what the declaration tells.
std::string nameTip(const PromptRow& row) {
    const std::string type = row.typeSpec.substr(0, row.typeSpec.find('('));
    const std::string tip = row.name + " (" + type + ")";
    return row.info.empty() ? tip : tip + "\n" + row.info;
}

}  // namespace

wxColour backdropColour(const wxWindow& window) {
    return mixed(window.GetBackgroundColour(), wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 0.14);
}

PromptRowView::PromptRowView(wxScrolledWindow& parent, PromptRow& row, std::size_t index) : row_(row) {
    makeName(parent, index);
    if (row.showsText()) makeText(parent, index, "textType");
    if (row.showsPath()) makeText(parent, index, "pathType");
    if (row.showsPath()) makeGetPath(parent, index);
    if (row.showsChoices()) makeChoices(parent, index);
}

void PromptRowView::makeName(wxScrolledWindow& parent, std::size_t index) {
    varName_ = new wxStaticText(&parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, controlName("varName", index));
    varName_->SetLabelText(toWx(row_.label));
    varName_->SetToolTip(toWx(nameTip(row_)));
    if (row_.backdropVisible) varName_->SetBackgroundColour(backdropColour(parent));
    if (!row_.askUser) return;
    const wxColour darkRed(192, 0, 0);
    const wxColour lightRed(255, 120, 110);
    varName_->SetFont(varName_->GetFont().Bold());
    varName_->SetForegroundColour(isDark(parent.GetBackgroundColour()) ? lightRed : darkRed);
}

void PromptRowView::makeText(wxScrolledWindow& parent, std::size_t index, const char* name) {
    text_ = makeTextBox(&parent, controlName(name, index), row_.text,
                        [this](std::string text) { row_.text = std::move(text); });
    if (!row_.info.empty()) text_->SetToolTip(toWx(row_.info));
}

void PromptRowView::makeChoices(wxScrolledWindow& parent, std::size_t index) {
    listType_ = new DropDown(&parent, row_.choices, controlName("listType", index));
    listType_->SetSelection(row_.selected);
    if (!row_.info.empty()) listType_->SetToolTip(toWx(row_.info));
    listType_->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { row_.selected = listType_->GetSelection(); });
}

void PromptRowView::makeGetPath(wxScrolledWindow& parent, std::size_t index) {
    getPath_ = makeBrowseButton(&parent, controlName("getPath", index), "Choose a file", [this] { browseForPath(); });
}

void PromptRowView::browseForPath() {
    if (!browse(row_)) return;
    text_->ChangeValue(toWx(row_.text));
    text_->SetFocus();
    text_->SetInsertionPointEnd();  // the name of a file stands at the end of its path
}

void PromptRowView::place(const TwipScale& scale, const ExtraWidths& extra, int scrolledBy) {
    const RowPlacement at;
    const auto moved = [&](Box box, int movedBy, int wider) {
        box.top += row_.place.graph1.top - at.graph1.top;
        wxRect place = scale.rect(box.left, box.top, box.width, box.height);
        place.Offset(movedBy, -scrolledBy);
        place.width += wider;
        return place;
    };
    const auto value = [&](const Box& box) { return moved(box, extra.name, extra.value); };
    varName_->SetSize(moved(at.varName, 0, extra.name));
    if (getPath_) {
        const wxRect button = moved(at.getPath, extra.name + extra.value, 0);
        wxRect box = value(at.pathType);
        box.SetRight(button.x - 1);  // the button stands over the end of the box
        text_->SetSize(box);
        getPath_->SetSize(button);
    } else if (text_) {
        text_->SetSize(value(at.textType));
    } else if (listType_) {
        wxRect box = value(at.listType);
        box.height = std::max(box.height, listType_->GetBestSize().y);
        listType_->SetSize(box);
    }
}

int PromptRowView::missingNameWidth(const TwipScale& scale) const {
    const int needed = varName_->GetTextExtent(toWx(row_.label)).x + 1;
    return std::max(0, needed - scale.x(RowPlacement().varName.width));
}

bool PromptRowView::needsUser() const {
    if (listType_) return row_.selected < 0;
    return text_ && row_.text.empty();
}

void PromptRowView::takeFocus() {
    wxWindow* control = text_ ? static_cast<wxWindow*>(text_) : listType_;
    if (control) control->SetFocus();
    if (text_) text_->SelectAll();
}

}  // namespace brasquelin
