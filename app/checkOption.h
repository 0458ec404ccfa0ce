// The option "--check": tells what is wrong in files.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

/// `arguments` are those behind the option: "--format text" or "--format json", then files. Findings go to standard
/// output, what could not be looked at to standard error. Gives the exit status: 0 without errors, 1 with, 2 where
/// something could not be looked at or the call itself is wrong.
int checkFiles(std::vector<std::string> arguments);

}  // namespace brasquelin
