#include "platform/standardStreams.h"

#include <string>

#include "text/text.h"

namespace brasquelin {

void writeMessage(std::string_view title, std::string_view text) {
    const std::string line = std::string(title) + ": " + std::string(text) + "\n";
    writeTo(StandardStream::error, replaceAll(line, "\r", ""));
}

}  // namespace brasquelin
