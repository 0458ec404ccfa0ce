// How a failure becomes a message.
#pragma once

#include <string_view>

#include "platform/desktop.h"
#include "platform/onlooker.h"
#include "text/runTimeError.h"

namespace brasquelin {

/// Shows a run-time error; `path` and `line` tell what was being worked on. What the user has interrupted is not told.
void report(const RunTimeError& error, std::string_view path = {}, int line = 0);

/// Runs a step. False when a run-time error ended it, which has been shown then.
template <typename Step>
bool reporting(std::string_view path, Step step) {
    try {
        step();
        return true;
    } catch (const std::exception&) {
        report(currentRunTimeError(), path);
        return false;
    }
}

/// A message with the critical-stop icon, and the end of the program. `fault` is for whoever looks on.
[[noreturn]] void endWithMessage(std::string_view text, const Fault& fault, std::string_view title = "Brasquelin");

}  // namespace brasquelin
