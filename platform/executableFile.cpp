#include "platform/executableFile.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/paths.h"

namespace brasquelin {

void makeExecutable(std::string_view path) {
    using std::filesystem::perms;
    const std::string resolved = resolvePath(path);
    const std::filesystem::path file(std::u8string(resolved.begin(), resolved.end()));
    std::error_code ignored;
    const perms now = std::filesystem::status(file, ignored).permissions();
    perms wanted = perms::none;
    if ((now & perms::owner_read) != perms::none) wanted |= perms::owner_exec;
    if ((now & perms::group_read) != perms::none) wanted |= perms::group_exec;
    if ((now & perms::others_read) != perms::none) wanted |= perms::others_exec;
    std::filesystem::permissions(file, wanted, std::filesystem::perm_options::add, ignored);
}

}  // namespace brasquelin
