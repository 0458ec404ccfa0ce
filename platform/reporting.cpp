#include "platform/reporting.h"

namespace brasquelin {

void report(const RunTimeError& error, std::string_view path, int line) {
    if (onlooker() && onlooker()->takes(error, {std::string(path), line})) return;
    const std::string text = error.reportWhileLoading(path, line);
    if (error.number() == ErrorNumber::userInterrupt) return desktop().noteFailure(text);
    showCritical(text, errorTitle);
}

void endWithMessage(std::string_view text, const Fault& fault, std::string_view title) {
    if (!onlooker() || !onlooker()->takes(text, fault)) showCritical(text, title);
    throw EndProgram(1);
}

}  // namespace brasquelin
