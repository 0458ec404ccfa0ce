// Tells what is running for longer than a moment, with a way to end it.
#pragma once

#include <functional>
#include <string_view>

#include "platform/wx/programDialog.h"

namespace brasquelin {

class FrmRunning : public ProgramDialog {
  public:
    FrmRunning(std::string_view what, std::function<void()> cancel);

  protected:
    void closing(bool byUser) override;

  private:
    std::function<void()> cancel_;
};

}  // namespace brasquelin
