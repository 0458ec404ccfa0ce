#include "app/frmDetectBorder.h"

#include "platform/desktop.h"
#include "platform/wx/placement.h"

namespace brasquelin {

namespace {
constexpr int notMeasured = 9999;
}

FrmDetectBorder::FrmDetectBorder()
    : wxFrame(nullptr, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE, "frmDetectBorder") {
    const wxSize border = GetSize() - GetClientSize();
    borderSizes.horizontal = border.x;
    borderSizes.vertical = border.y;
}

void detectBorders() {
    borderSizes = BorderSizes();
    auto* window = new FrmDetectBorder;
    while (borderSizes.vertical == notMeasured) desktop().processPendingEvents();
    window->Destroy();
}

}  // namespace brasquelin
