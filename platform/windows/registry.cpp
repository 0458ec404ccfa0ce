#include "platform/windows/registry.h"

#include <windows.h>

#include <charconv>
#include <string>

#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

LSTATUS setNumber(HKEY key, const wchar_t* name, std::string_view value) {
    std::int64_t number = 0;
    if (std::from_chars(value.data(), value.data() + value.size(), number).ec != std::errc()) return ERROR_SUCCESS;
    const auto data = static_cast<DWORD>(number);
    return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&data), sizeof data);
}

// Without a terminating zero: as many units as the text has characters.
LSTATUS setText(HKEY key, const wchar_t* name, std::string_view value) {
    const std::wstring data = toWide(value);
    return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.data()),
                          static_cast<DWORD>(data.size() * sizeof(wchar_t)));
}

/// False when the system refused.
bool setValue(HKEY hive, std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
              std::string_view value) {
    HKEY key = nullptr;
    if (RegCreateKeyW(hive, toWide(keyPath).c_str(), &key) != ERROR_SUCCESS) return false;
    const std::wstring name = toWide(valueName);
    const LSTATUS status =
        valueType == registryNumber ? setNumber(key, name.c_str(), value) : setText(key, name.c_str(), value);
    RegFlushKey(key);
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

/// Whoever may not write for all users writes what holds for the own account.
void setClassesValue(std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
                     std::string_view value) {
    if (setValue(HKEY_CLASSES_ROOT, keyPath, valueName, valueType, value)) return;
    setValue(HKEY_CURRENT_USER, "Software\\Classes\\" + std::string(keyPath), valueName, valueType, value);
}

}  // namespace

void setRegistryValue(RegistryHive /*hive*/, std::string_view keyPath, std::string_view valueName,
                      std::uint32_t valueType, std::string_view value) noexcept {
    try {
        setClassesValue(keyPath, valueName, valueType, value);
    } catch (...) {  // the program starts without its file types, too
        return;
    }
}

}  // namespace brasquelin
