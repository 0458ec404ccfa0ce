#include "app/frmWait.h"

#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "app/openFile.h"

namespace brasquelin {

FrmWait::FrmWait() : ProgramDialog("frmWait", "Wait please ...") {
    text_ = new wxStaticText(this, wxID_ANY, "Wait please ...", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                             "progressText");
    gauge_ = new wxGauge(this, wxID_ANY, 1, wxDefaultPosition, FromDIP(wxSize(260, 16)), wxGA_HORIZONTAL,
                         wxDefaultValidator, "progress");
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(text_, wxSizerFlags().Expand().DoubleBorder(wxALL));
    sizer->Add(gauge_, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    gauge_->Show(opening.replaying);
    SetSizer(sizer);
    fit(FromDIP(wxSize(300, 80)));

    Timer1_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { startRun(); });
    if (opening.replaying) {
        Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
            showProgress();
            event.Skip();
        });
        showProgress();
    } else {
        Timer1_.StartOnce(1);
    }
}

void FrmWait::startRun() {
    closeAndThen(runWaiting);
}

/// Nothing is waiting for the user here: the close box only hides the progress of a list.
void FrmWait::closing(bool byUser) {
    if (byUser && !opening.replaying) return;
    closeWindow();
}

void FrmWait::showProgress() {
    if (shown_ == opening.replayed) return;
    shown_ = opening.replayed;
    const auto total = opening.toReplay;
    const auto current = std::min(shown_ + 1, total);
    text_->SetLabel(wxString::Format("File %zu of %zu", current, total));
    gauge_->SetRange(static_cast<int>(std::max<std::size_t>(total, 1)));
    gauge_->SetValue(static_cast<int>(std::min(shown_, total)));
}

}  // namespace brasquelin
