// The part of the program that shows windows. On Windows it is linked like any other. On Linux it is a module beside
// the program, loaded when a window is wanted: all else works where no toolkit is installed, and starts without it.
#pragma once

#include <string>

namespace brasquelin {

/// Why no window can be shown: a display or a package is missing. Empty when windows can be shown; Linux: they are
/// loaded then.
std::string whyNoWindows();

/// The program with its windows, from the start to the exit status. To be called only when nothing speaks against
/// windows.
int runWithWindows(const std::string& commandLine);

}  // namespace brasquelin

/// What the module has to offer: the same. The rooms above implement it.
extern "C" int brasquelinWindows(const char* commandLine);
