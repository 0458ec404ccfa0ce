// The shell's registry of file types.
#pragma once

#include <cstdint>
#include <string_view>

namespace brasquelin {

enum class RegistryHive { classesRoot };
inline constexpr std::uint32_t registryText = 1;    // REG_SZ
inline constexpr std::uint32_t registryNumber = 4;  // REG_DWORD

/// Writes one value; every failure is ignored. Windows without the right to write for all users writes below the
/// user's own classes. Linux keeps the file associations as a desktop entry and a MIME package
/// under the user's data directory: the default values of ".bqs", ".bqp" and of the open command make them up, and
/// anything else is dropped.
void setRegistryValue(RegistryHive hive, std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
                      std::string_view value) noexcept;

}  // namespace brasquelin
