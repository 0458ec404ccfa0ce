// The manual, a page beside the program.
#pragma once

namespace brasquelin {

/// Shows it in the browser. A page that is not there is told by its name.
void openManual();

}  // namespace brasquelin
