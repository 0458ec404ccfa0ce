#include "platform/windowModule.h"

namespace brasquelin {

std::string whyNoWindows() {
    return {};
}

int runWithWindows(const std::string& commandLine) {
    return brasquelinWindows(commandLine.c_str());
}

}  // namespace brasquelin
