#include "platform/wx/programDialog.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/sizer.h>

#include <utility>

#include "platform/wx/application.h"
#include "platform/wx/pictures.h"
#include "platform/wx/placement.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

ProgramDialog::ProgramDialog(std::string_view name, std::string_view caption)
    : wxDialog(nullptr, wxID_ANY, toWx(caption), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, toWx(name)) {
    SetIcons(programIcons());
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) { closing(event.CanVeto()); });
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

void ProgramDialog::fit(const wxSize& wanted) {
    if (GetSizer()) GetSizer()->SetSizeHints(this);
    wxSize size = GetSize();
    size.IncTo(wanted);
    SetSize(size);
    placeOnScreen(*this);
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
