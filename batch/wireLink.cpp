#include "batch/wireLink.h"

namespace brasquelin {

void WireLink::send(const std::vector<RunMessage>& messages) {
    std::string bytes;
    for (const auto& message : messages) bytes += encode(message);
    wire_->send(bytes);
}

}  // namespace brasquelin
