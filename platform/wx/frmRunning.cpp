#include "platform/wx/frmRunning.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmRunning::FrmRunning(std::string_view what, std::function<void()> cancel)
    : ProgramDialog("frmRunning", "Wait please ..."), cancel_(std::move(cancel)) {
    SetExtraStyle(GetExtraStyle() | wxWS_EX_TRANSIENT);  // it may go while a message is open
    constexpr std::size_t widestLine = 80;
    auto* text = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "runningText");
    text->SetLabelText(brokenIntoLines(toWxLines(what), widestLine));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(text, wxSizerFlags(1).Expand().DoubleBorder(wxALL));
    sizer->Add(makeCancelButton(this), wxSizerFlags().Right().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    SetSizer(sizer);
    fit(FromDIP(wxSize(320, 90)));
}

void FrmRunning::closing(bool byUser) {
    closeWindow();
    if (byUser) cancel_();
}

}  // namespace brasquelin
