// Picks a profile from the configured folder.
#pragma once

#include "app/frmPicker.h"

namespace brasquelin {

class FrmAddProfile : public FrmPicker {
  public:
    FrmAddProfile();
};

}  // namespace brasquelin
