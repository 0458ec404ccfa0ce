#include "vars/frmVarForm.h"

#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>

#include <algorithm>
#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/placement.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"
#include "vars/loadPrompt.h"

namespace brasquelin {

namespace {

void useFace(wxButton& button, const char* face, bool heavy) {
    wxFont font = button.GetFont();
    const bool found = font.SetFaceName(face);
    button.SetFont(heavy && !found ? button.GetFont().Bold() : font);
}

/// The main window may make room for the editor while the prompt of the named file stays.
wxWindow* parentFor(const PromptForm& form) {
    return form.endsProgram ? nullptr : newestWindow();
}

constexpr int gapX = 5;  // between the backdrops, in twips
constexpr int gapY = 7;

int heightForWindows(const wxWindow& window) {
    const int screen = std::max(wxDisplay::GetFromWindow(&window), 0);
    const int border = borderSizes.vertical < 9999 ? borderSizes.vertical : 0;
    return wxDisplay(static_cast<unsigned>(screen)).GetClientArea().height - border;
}

}  // namespace

FrmVarForm::FrmVarForm(std::shared_ptr<PromptForm> form)
    : ProgramDialog(form->windowName(), visibleText(form->title), parentFor(*form)),
      form_(std::move(form)),
      scale_(*this) {
    makeRows();
    makeButtons();
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        layOut();
        event.Skip();
    });
    setFirstSize();
    focusFirst();
}

void FrmVarForm::makeRows() {
    rowsArea_ = new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL);
    for (std::size_t i = 0; i < form_->rows.size(); ++i) {
        rows_.push_back(std::make_unique<PromptRowView>(*rowsArea_, form_->rows[i], i));
    }
    rowsArea_->SetScrollRate(0, std::max(1, scale_.y(form_->cmdOK.height) / 4));
    rowsArea_->Bind(wxEVT_PAINT, &FrmVarForm::paintBackdrops, this);
}

void FrmVarForm::makeButtons() {
    cmdCancel_ = makeCancelButton(this);
    cmdOK_ = makeButton(this, "OK", "cmdOK", [this] { confirm(); });
    useFace(*cmdCancel_, "Arial", false);
    useFace(*cmdOK_, "Arial Black", true);
    cmdOK_->SetDefault();
    // Only dismisses the prompt, where the close box may end the program.
    cmdCancel_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { closeWindow(); });
}

void FrmVarForm::confirm() {
    if (refusesConfirmation(*form_)) return;
    closeAndThen([form = form_] { confirmPrompt(*form); });
}

void FrmVarForm::closing(bool byUser) {
    closeWindow();
    if (byUser) promptClosed(*form_);
}

int FrmVarForm::designWidth() const {
    return scale_.x(form_->cmdOK.left + form_->cmdOK.width);
}

/// What the longest name lacks. A name without end leaves room for the values.
int FrmVarForm::missingNameWidth() const {
    int missing = 0;
    for (const auto& row : rows_) missing = std::max(missing, row->missingNameWidth(scale_));
    return std::min(missing, designWidth());
}

/// The names come first.
ExtraWidths FrmVarForm::extraWidths() const {
    const int extra = std::max(0, rowsArea_->GetClientSize().x - designWidth());
    const int name = std::min(extra, missingNameWidth());
    return {name, extra - name};
}

void FrmVarForm::setFirstSize() {
    const int buttons = scale_.y(form_->cmdOK.height);
    const int wanted = scale_.y(form_->cmdOK.top) + buttons;
    const int available = heightForWindows(*this);
    const bool scrolls = wanted > available;
    const int scrollBar = scrolls ? std::max(0, wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this)) : 0;
    SetClientSize(designWidth() + missingNameWidth() + scrollBar, std::min(wanted, available));
    SetMinClientSize(wxSize(designWidth() + scrollBar, std::min(wanted, 4 * buttons)));
    placeOnScreen(*this);
    layOut();
}

void FrmVarForm::layOut() {
    if (!cmdOK_) return;
    const wxSize client = GetClientSize();
    const int buttons = scale_.y(form_->cmdOK.height);
    rowsArea_->SetSize(0, 0, client.x, std::max(0, client.y - buttons));
    rowsArea_->SetVirtualSize(rowsArea_->GetClientSize().x, scale_.y(form_->cmdOK.top));
    const ExtraWidths extra = extraWidths();
    const int split = scale_.x(form_->cmdOK.left) + extra.name;
    cmdCancel_->SetSize(0, client.y - buttons, scale_.x(form_->cmdCancel.width) + extra.name, buttons);
    cmdOK_->SetSize(split, client.y - buttons, client.x - split, buttons);
    const int scrolledBy = rowsArea_->CalcUnscrolledPosition(wxPoint(0, 0)).y;
    for (const auto& row : rows_) row->place(scale_, extra, scrolledBy);
    rowsArea_->Refresh();
}

void FrmVarForm::paintBackdrops(wxPaintEvent& /*event*/) {
    wxPaintDC canvas(rowsArea_);
    rowsArea_->DoPrepareDC(canvas);
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(backdropColour(*rowsArea_)));
    const ExtraWidths extra = extraWidths();
    // A line of at least one pixel stays free between neighbours.
    const auto fill = [&](const Box& box, int movedBy, int wider) {
        const wxPoint corner(scale_.x(box.left) + movedBy, scale_.y(box.top));
        const wxPoint next(scale_.x(box.left + box.width + gapX) + movedBy + wider, scale_.y(box.bottom() + gapY));
        canvas.DrawRectangle(corner.x, corner.y, next.x - corner.x - 1, next.y - corner.y - 1);
    };
    for (const auto& row : form_->rows) {
        if (!row.backdropVisible) continue;
        fill(row.place.graph1, 0, extra.name);
        fill(row.place.graph2, extra.name, extra.value + 1);
    }
}

void FrmVarForm::focusFirst() {
    const auto asked = [](const auto& row) { return row->model().askUser; };
    const auto open = [](const auto& row) { return row->needsUser(); };
    auto row = std::find_if(rows_.begin(), rows_.end(), asked);
    if (row == rows_.end()) row = std::find_if(rows_.begin(), rows_.end(), open);
    if (row == rows_.end()) row = rows_.begin();
    if (row == rows_.end()) {
        cmdOK_->SetFocus();
    } else {
        (*row)->takeFocus();
    }
}

}  // namespace brasquelin
