// The option "--dry-run": prints what would be in the batch file.
#pragma once

#include <string_view>

namespace brasquelin {

/// `arguments` is the command line behind the option: "--with-plugins", then a file with its presets, or "-f " and a
/// list. The finished lines go to standard output, everything else to standard error. Gives the exit status: 0; 1 after
/// a message or where something would have to be asked; 2 for a call that names no file. Nothing is printed where no
/// batch file would be written.
int dryRun(std::string_view arguments);

}  // namespace brasquelin
