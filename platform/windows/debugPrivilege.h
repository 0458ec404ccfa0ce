// The right to end processes of other users, where the account may have it.
#pragma once

namespace brasquelin {

/// False when the account does not have it.
bool enableDebugPrivilege();

}  // namespace brasquelin
