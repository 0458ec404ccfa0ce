#include "vars/frmVarProfile.h"

#include "vars/loadPrompt.h"

namespace brasquelin {

FrmVarProfile::FrmVarProfile() : FrmVarForm("frmVarProfile", "Profile's Var", currentPrompt(PromptKind::profile)) {}

}  // namespace brasquelin
