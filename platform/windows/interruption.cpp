#include "platform/interruption.h"

namespace brasquelin {

/// A job object ends what runs with the program.
void noteInterruption() {}

bool wasInterrupted() {
    return false;
}

}  // namespace brasquelin
