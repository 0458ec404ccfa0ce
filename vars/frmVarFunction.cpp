#include "vars/frmVarFunction.h"

#include "vars/loadPrompt.h"

namespace brasquelin {

FrmVarFunction::FrmVarFunction()
    : FrmVarForm("frmVarFunction", "Function's Var", currentPrompt(PromptKind::function)) {}

}  // namespace brasquelin
