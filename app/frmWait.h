// The waiting window: its timer starts the run of a confirmed file; while a list is replayed it shows how far that is.
#pragma once

#include <wx/timer.h>

#include <cstddef>

#include "platform/wx/programDialog.h"

class wxGauge;
class wxStaticText;

namespace brasquelin {

class FrmWait : public ProgramDialog {
  public:
    FrmWait();

  protected:
    void closing(bool byUser) override;

  private:
    void startRun();
    void showProgress();

    wxTimer Timer1_;
    wxStaticText* text_ = nullptr;
    wxGauge* gauge_ = nullptr;
    std::size_t shown_ = static_cast<std::size_t>(-1);
};

}  // namespace brasquelin
