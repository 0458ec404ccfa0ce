#include "app/frmAddProfile.h"

namespace brasquelin {

FrmAddProfile::FrmAddProfile()
    : FrmPicker({"frmAddProfile", "Add profile", "profileName", "Profiles", "Load Profile",
                 "There are no profiles in the profile folder."},
                listProfiles()) {}

}  // namespace brasquelin
