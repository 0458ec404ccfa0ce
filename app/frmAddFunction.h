// Picks a library from the configured folder.
#pragma once

#include "app/frmPicker.h"

namespace brasquelin {

class FrmAddFunction : public FrmPicker {
  public:
    FrmAddFunction();
};

}  // namespace brasquelin
