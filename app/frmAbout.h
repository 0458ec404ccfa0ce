// About the program.
#pragma once

#include "platform/wx/programDialog.h"

namespace brasquelin {

class FrmAbout : public ProgramDialog {
  public:
    FrmAbout();
};

}  // namespace brasquelin
