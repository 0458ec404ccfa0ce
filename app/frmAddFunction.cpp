#include "app/frmAddFunction.h"

namespace brasquelin {

FrmAddFunction::FrmAddFunction()
    : FrmPicker({"frmAddFunction", "Add Function", "functionName", "Libraries", "Load library",
                 "There are no libraries in the library folder."},
                listLibraries()) {}

}  // namespace brasquelin
