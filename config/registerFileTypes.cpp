#include "config/registerFileTypes.h"

#include <exception>

#include "platform/fileTypes.h"
#include "platform/paths.h"

namespace brasquelin {

void registerFileTypes() noexcept {
    constexpr std::string_view fileType = "Brasquelin.Script";
    try {
        const std::string command = exeDirectory() + "\\Brasquelin.exe %1";
        setRegistryValue(RegistryHive::classesRoot, ".bqs", "", registryText, fileType);
        setRegistryValue(RegistryHive::classesRoot, ".bqp", "", registryText, fileType);
        setRegistryValue(RegistryHive::classesRoot, "Brasquelin.Script\\shell\\open\\command", "", registryText,
                         command);
    } catch (const std::exception&) {  // a start without a registration is a start all the same
    }
}

}  // namespace brasquelin
