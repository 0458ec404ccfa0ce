// What the window of a run remembers from run to run.
#pragma once

#include <string>

namespace brasquelin {

/// Whether the window closes when all went well. A file that is missing or cannot be read says no.
bool closesWhenWell(const std::string& file);
/// Raises the error of writing.
void setClosesWhenWell(const std::string& file, bool closes);

}  // namespace brasquelin
