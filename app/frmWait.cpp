#include "app/frmWait.h"

#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

constexpr const char* caption = "Wait please ...";

}  // namespace

FrmWait::FrmWait(std::function<void()> run) : ProgramDialog("frmWait", caption) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(new wxStaticText(this, wxID_ANY, caption), wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(sizer);
    fit(FromDIP(wxSize(300, 80)));
    Timer1_.Bind(wxEVT_TIMER, [this, run = std::move(run)](wxTimerEvent&) { closeAndThen(run); });
    Timer1_.StartOnce(1);
}

FrmWait::FrmWait(std::shared_ptr<const ListProgress> progress)
    : ProgramDialog("frmWait", caption), progress_(std::move(progress)) {
    SetExtraStyle(GetExtraStyle() | wxWS_EX_TRANSIENT);  // it may go while a prompt is open
    SetSizer(makeProgress());
    fit(FromDIP(wxSize(300, 80)));
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        showProgress();
        event.Skip();
    });
    showProgress();
}

wxSizer* FrmWait::makeProgress() {
    text_ =
        new wxStaticText(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE, "progressText");
    gauge_ = new wxGauge(this, wxID_ANY, 1, wxDefaultPosition, FromDIP(wxSize(260, 16)), wxGA_HORIZONTAL,
                         wxDefaultValidator, "progress");
    running_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE, "runningText");
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(text_, wxSizerFlags().Expand().DoubleBorder(wxALL));
    sizer->Add(gauge_, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    sizer->Add(running_, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    sizer->Add(makeCancelButton(this), wxSizerFlags().Right().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    return sizer;
}

/// Before a run there is nothing to cancel; of a list the close box is the Cancel.
void FrmWait::closing(bool byUser) {
    if (byUser && !progress_) return;
    closeWindow();
    if (byUser) progress_->cancel();
}

void FrmWait::tellRunning(std::string_view what) {
    if (running_) running_->SetLabelText(toWx(what));
}

void FrmWait::showProgress() {
    if (shown_ == progress_->done) return;
    shown_ = progress_->done;
    const auto total = progress_->total;
    const auto current = std::min(shown_ + 1, total);
    text_->SetLabel(wxString::Format("File %zu of %zu", current, total));
    gauge_->SetRange(static_cast<int>(std::max<std::size_t>(total, 1)));
    gauge_->SetValue(static_cast<int>(std::min(shown_, total)));
}

}  // namespace brasquelin
