// The system's registry.
#pragma once

#include <cstdint>
#include <string_view>

namespace brasquelin {

enum class RegistryHive { classesRoot };
inline constexpr std::uint32_t registryText = 1;    // REG_SZ
inline constexpr std::uint32_t registryNumber = 4;  // REG_DWORD

/// Writes one value; every failure is ignored. Any type but `registryNumber` is written as text. Without the right to
/// write for all users the value is written below the user's own classes.
void setRegistryValue(RegistryHive hive, std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
                      std::string_view value) noexcept;

}  // namespace brasquelin
