#include "platform/fileTypes.h"

#include "platform/windows/registry.h"

namespace brasquelin {

namespace {

void setDefaultValue(const std::string& key, const std::string& value) {
    setRegistryValue(RegistryHive::classesRoot, key, "", registryText, value);
}

}  // namespace

void registerFileType(const FileType& type) noexcept {
    for (const auto& extension : type.extensions) setDefaultValue(extension, type.name);
    setDefaultValue(type.name + "\\shell\\open\\command", type.program + " %1");
}

}  // namespace brasquelin
