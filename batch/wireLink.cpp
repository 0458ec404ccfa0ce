#include "batch/wireLink.h"

#include <string>

namespace brasquelin {

/// A long message comes in several pieces.
std::vector<RunMessage> WireLink::receive() {
    std::vector<RunMessage> messages;
    std::string bytes;
    do {
        bytes = wire_->receive();
        messages = reader_.take(bytes);
    } while (messages.empty() && !bytes.empty());
    return messages;
}

void WireLink::send(const std::vector<RunMessage>& messages) {
    std::string bytes;
    for (const auto& message : messages) bytes += encode(message);
    wire_->send(bytes);
}

}  // namespace brasquelin
