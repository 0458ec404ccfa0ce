#include "platform/wx/programDialog.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/sizer.h>

#include <utility>

#include "platform/wx/application.h"
#include "platform/wx/pictures.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

ProgramDialog::ProgramDialog(std::string_view name, std::string_view caption, wxWindow* parent)
    : wxDialog(parent, wxID_ANY, toWx(caption), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, toWx(name)) {
    SetIcons(programIcons());
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) { closing(event.CanVeto()); });
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); }, wxID_CANCEL);
    Bind(wxEVT_CHAR_HOOK, &ProgramDialog::handleKey, this);
}

void ProgramDialog::closing(bool /*byUser*/) {
    closeWindow();
}

void ProgramDialog::closeWindow() {
    if (!IsShown()) return;
    if (IsModal()) {
        EndModal(wxID_CANCEL);
    } else {
        Hide();
        Destroy();
    }
}

void ProgramDialog::closeAndThen(std::function<void()> step) {
    const bool modal = IsModal();
    if (modal) {
        lastStep_ = std::move(step);
    } else {
        wxTheApp->CallAfter(step);
    }
    closeWindow();
}

std::function<void()> ProgramDialog::takeLastStep() {
    return std::exchange(lastStep_, nullptr);
}

/// In sizes within the frame: what the frame takes is known only once the window is up.
void ProgramDialog::fit(const wxSize& wanted) {
    wxSize size = wanted;
    size.IncTo(GetSizer()->CalcMin());
    SetClientSize(size);
    fitMinimum();
    placeOnScreen(*this);
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        if (event.IsShown()) CallAfter(&ProgramDialog::fitMinimum);
        event.Skip();
    });
}

void ProgramDialog::fitMinimum() {
    const wxSize needed = GetSizer()->CalcMin();
    SetMinClientSize(needed);
    wxSize size = GetClientSize();
    size.IncTo(needed);
    if (size != GetClientSize()) SetClientSize(size);
}

bool ProgramDialog::pressDefaultButton() {
    auto* button = dynamic_cast<wxButton*>(GetDefaultItem());
    if (!button || !button->IsEnabled()) return false;
    wxCommandEvent press(wxEVT_BUTTON, button->GetId());
    press.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(press);
    return true;
}

void ProgramDialog::handleKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool enter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (enter && !event.HasAnyModifiers() && !dynamic_cast<wxButton*>(wxWindow::FindFocus())) {
        if (pressDefaultButton()) return;
    }
    if (key == WXK_ESCAPE && !FindWindow(wxID_CANCEL)) {
        Close();
        return;
    }
    event.Skip();
}

}  // namespace brasquelin
