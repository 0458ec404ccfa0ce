// The waiting window: its timer starts the run of a confirmed file; while a list is replayed it shows how far that is.
#pragma once

#include <wx/timer.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/desktop.h"
#include "platform/wx/programDialog.h"

class wxGauge;
class wxSizer;
class wxStaticText;

namespace brasquelin {

class FrmWait : public ProgramDialog {
  public:
    /// The timer hides the window and does `run`; the window goes when that has ended.
    explicit FrmWait(std::function<void()> run);
    /// Shows how far a list is.
    explicit FrmWait(std::shared_ptr<const ListProgress> progress);

    /// Tells what one of the list's files waits for; an empty text: nothing any more.
    void tellRunning(std::string_view what);

  protected:
    void closing(bool byUser) override;

  private:
    wxSizer* makeProgress();
    void showProgress();

    std::shared_ptr<const ListProgress> progress_;
    wxTimer Timer1_;
    wxStaticText* text_ = nullptr;
    wxStaticText* running_ = nullptr;
    wxGauge* gauge_ = nullptr;
    std::size_t shown_ = static_cast<std::size_t>(-1);
};

}  // namespace brasquelin
