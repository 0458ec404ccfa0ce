// Where the desktop keeps what belongs to the user.
#pragma once

#include <string>

namespace brasquelin {

/// The user's directory for application data; empty when there is none.
std::string userDataDirectory();

}  // namespace brasquelin
