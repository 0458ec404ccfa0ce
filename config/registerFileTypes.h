// Makes the program the handler of ".bqs" and ".bqp" files.
#pragma once

namespace brasquelin {

/// Rewritten at every start; failures are silent.
void registerFileTypes() noexcept;

}  // namespace brasquelin
