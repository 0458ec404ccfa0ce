// The prompt for a profile's variables.
#pragma once

#include "vars/frmVarForm.h"

namespace brasquelin {

class FrmVarProfile : public FrmVarForm {
  public:
    FrmVarProfile();
};

}  // namespace brasquelin
