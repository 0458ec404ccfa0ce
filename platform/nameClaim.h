// Names that one running program of this machine has at a time.
#pragma once

#include <string>

namespace brasquelin {

/// True when this process has the name, from now on until it ends, however it ends. False while another process has it.
/// Where the system cannot tell, nobody else has it.
bool claimName(const std::string& name);

}  // namespace brasquelin
