#include "platform/nameClaim.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <functional>
#include <map>

#include "platform/posix/descriptor.h"

namespace brasquelin {

namespace {

/// In the namespace that has no files: the name goes with its last socket.
bool bindTo(const Descriptor& bound, const std::string& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string text = "Brasquelin-" + std::to_string(std::hash<std::string>()(name));
    std::copy(text.begin(), text.end(), address.sun_path + 1);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    return bind(bound.get(), reinterpret_cast<const sockaddr*>(&address), size) == 0;
}

}  // namespace

bool claimName(const std::string& name) {
    static std::map<std::string, Descriptor> claimed;
    if (claimed.contains(name)) return true;
    const auto [place, isNew] = claimed.try_emplace(name, socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!place->second || bindTo(place->second, name) || errno != EADDRINUSE) return true;
    claimed.erase(place);
    return false;
}

}  // namespace brasquelin
