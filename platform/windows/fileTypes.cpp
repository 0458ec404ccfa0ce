#include "platform/fileTypes.h"

#include <windows.h>

#include <charconv>
#include <string>

#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

void setNumber(HKEY key, const wchar_t* name, std::string_view value) {
    std::int64_t number = 0;
    if (std::from_chars(value.data(), value.data() + value.size(), number).ec != std::errc()) return;
    const auto data = static_cast<DWORD>(number);
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&data), sizeof data);
}

// Without a terminating zero: as many units as the text has characters.
void setText(HKEY key, const wchar_t* name, std::string_view value) {
    const std::wstring data = toWide(value);
    RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.data()),
                   static_cast<DWORD>(data.size() * sizeof(wchar_t)));
}

void setValue(HKEY hive, std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
              std::string_view value) {
    HKEY key = nullptr;
    if (RegCreateKeyW(hive, toWide(keyPath).c_str(), &key) != ERROR_SUCCESS) return;
    const std::wstring name = toWide(valueName);
    if (valueType == registryNumber) {
        setNumber(key, name.c_str(), value);
    } else {
        setText(key, name.c_str(), value);
    }
    RegFlushKey(key);
    RegCloseKey(key);
}

HKEY systemHive(RegistryHive hive) {
    switch (hive) {
        case RegistryHive::classesRoot:
            return HKEY_CLASSES_ROOT;
    }
    return nullptr;
}

}  // namespace

void setRegistryValue(RegistryHive hive, std::string_view keyPath, std::string_view valueName, std::uint32_t valueType,
                      std::string_view value) noexcept {
    try {
        setValue(systemHive(hive), keyPath, valueName, valueType, value);
    } catch (...) {  // the program starts without its file types, too
        return;
    }
}

}  // namespace brasquelin
