#include "vars/promptRowView.h"

#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/colours.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/twipScale.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"
#include "vars/typeSpec.h"

namespace brasquelin {

namespace {

wxString controlName(const char* name, std::size_t index) {
    return index == 0 ? wxString(name) : wxString::Format("%s(%zu)", name, index);
}

/// "archive (PathSave)", then what the declaration tells.
std::string nameTip(const PromptRow& row) {
    const std::string type(typeWord(row.typeSpec));
    const std::string tip = visibleText(row.name + " (" + type + ")");
    return row.info.empty() ? tip : tip + "\n" + visibleText(row.info);
}

std::vector<std::string> shownChoices(const PromptRow& row) {
    std::vector<std::string> shown;
    for (const auto& choice : row.choices) shown.push_back(visibleText(choice));
    return shown;
}

wxString wholeTip(const std::string& info, const std::string& value) {
    constexpr std::size_t widestLine = 110;
    const std::string tip = info.empty() ? "" : visibleText(info) + "\n";
    return toWx(tip + "Longer than its box:\n") + brokenIntoLines(toWx(value), widestLine);
}

}  // namespace

wxColour backdropColour(const wxWindow& window) {
    return mixed(window.GetBackgroundColour(), wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 0.14);
}

PromptRowView::PromptRowView(wxScrolledWindow& parent, PromptRow& row, std::size_t index) : row_(row), index_(index) {
    makeName(parent, index);
    if (row.showsText()) makeText(parent, index, "textType");
    if (row.showsPath()) makeText(parent, index, "pathType");
    if (row.showsPath()) makeGetPath(parent, index);
    if (row.showsChoices()) makeChoices(parent, index);
}

/// Made when it is needed: GTK complains of hidden controls that are scrolled.
void PromptRowView::makeSign() {
    wxWindow& parent = *varName_->GetParent();
    goesOn_ = new wxStaticText(&parent, wxID_ANY, toWx("\u00BB"), wxDefaultPosition, wxDefaultSize, 0,
                               controlName("goesOn", index_));
    if (row_.backdropVisible) goesOn_->SetBackgroundColour(backdropColour(parent));
}

void PromptRowView::makeName(wxScrolledWindow& parent, std::size_t index) {
    varName_ = new wxStaticText(&parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, controlName("varName", index));
    varName_->SetLabelText(toWx(visibleText(row_.label)));
    varName_->SetToolTip(toWx(nameTip(row_)));
    if (row_.backdropVisible) varName_->SetBackgroundColour(backdropColour(parent));
    if (!row_.askUser) return;
    const wxColour darkRed(192, 0, 0);
    const wxColour lightRed(255, 120, 110);
    varName_->SetFont(varName_->GetFont().Bold());
    varName_->SetForegroundColour(isDark(parent.GetBackgroundColour()) ? lightRed : darkRed);
}

void PromptRowView::makeText(wxScrolledWindow& parent, std::size_t index, const char* name) {
    text_ = makeTextBox(&parent, controlName(name, index), visibleText(row_.text));
    text_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { showWhetherItGoesOn(); });
    keepExact(*text_, row_.text);
}

void PromptRowView::makeChoices(wxScrolledWindow& parent, std::size_t index) {
    listType_ = new DropDown(&parent, shownChoices(row_), controlName("listType", index));
    listType_->SetSelection(row_.selected);
    listType_->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) {
        row_.selected = listType_->GetSelection();
        showWhetherItGoesOn();
    });
}

void PromptRowView::makeGetPath(wxScrolledWindow& parent, std::size_t index) {
    getPath_ = makeBrowseButton(&parent, controlName("getPath", index), "Choose a file", [this] { browseForPath(); });
}

void PromptRowView::browseForPath() {
    if (!browse(row_)) return;
    text_->ChangeValue(toWx(visibleText(row_.text)));
    showWhetherItGoesOn();
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
    if (!valueControl()) return;
    valueWidth_ = valueControl()->GetSize().x;
    showWhetherItGoesOn();
}

wxControl* PromptRowView::valueControl() const {
    return text_ ? static_cast<wxControl*>(text_) : listType_;
}

/// The beginning is enough for what has no end.
std::string PromptRowView::shownValue() const {
    if (text_) return shownLine(row_.text);
    return row_.selected < 0 ? "" : shownLine(row_.choices[static_cast<std::size_t>(row_.selected)]);
}

void PromptRowView::showWhetherItGoesOn() {
    wxControl& box = *valueControl();
    const std::string value = shownValue();
    const bool goesOn = box.GetSizeFromTextSize(box.GetTextExtent(toWx(value)).x).x > valueWidth_;
    if (goesOn && !goesOn_) makeSign();
    if (!goesOn && goesOn_) {
        goesOn_->Destroy();
        goesOn_ = nullptr;
    }
    placeSign();
    const wxString tip = goesOn ? wholeTip(row_.info, value) : toWx(visibleText(row_.info));
    if (goesOn_) goesOn_->SetToolTip(tip);
    if (box.GetToolTipText() != tip) box.SetToolTip(tip);
}

void PromptRowView::placeSign() {
    wxControl& box = *valueControl();
    const wxSize sign = goesOn_ ? goesOn_->GetBestSize() + wxSize(box.FromDIP(4), 0) : wxSize(0, 0);
    const int width = valueWidth_ - sign.x;
    // On Windows the entries of a drop-down that changes its size come up again.
    if (box.GetSize().x != width) box.SetSize(width, box.GetSize().y);
    if (!goesOn_) return;
    goesOn_->Move(box.GetRect().GetRight() + sign.x / 4, box.GetPosition().y + (box.GetSize().y - sign.y) / 2);
}

int PromptRowView::missingNameWidth(const TwipScale& scale) const {
    const int needed = varName_->GetTextExtent(varName_->GetLabelText()).x + 1;
    return std::max(0, needed - scale.x(RowPlacement().varName.width));
}

bool PromptRowView::needsUser() const {
    if (listType_) return row_.selected < 0;
    return text_ && row_.text.empty();
}

void PromptRowView::takeFocus() {
    if (wxWindow* control = valueControl()) control->SetFocus();
    if (text_) text_->SelectAll();
}

}  // namespace brasquelin
