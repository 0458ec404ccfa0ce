// Addresses of files, as desktops and browsers hand them over.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// The path that a "file://" address without a host, or with the host "localhost", names, its "%20" and the like
/// decoded. Any other text as it is.
std::string pathOfAddress(std::string_view text);

}  // namespace brasquelin
