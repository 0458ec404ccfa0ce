// The prompt for a library's variables.
#pragma once

#include "vars/frmVarForm.h"

namespace brasquelin {

class FrmVarFunction : public FrmVarForm {
  public:
    FrmVarFunction();
};

}  // namespace brasquelin
