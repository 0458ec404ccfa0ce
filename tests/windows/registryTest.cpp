#include "platform/windows/registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace brasquelin {
namespace {

constexpr const wchar_t* testKey = L"Brasquelin.TestType";

struct StoredValue {
    DWORD type = 0;
    std::vector<BYTE> data;
};

StoredValue stored(const wchar_t* key, const wchar_t* name) {
    HKEY opened = nullptr;
    StoredValue value;
    if (RegOpenKeyW(HKEY_CLASSES_ROOT, key, &opened) != ERROR_SUCCESS) return value;
    DWORD size = 256;
    value.data.resize(size);
    RegQueryValueExW(opened, name, nullptr, &value.type, value.data.data(), &size);
    value.data.resize(size);
    RegCloseKey(opened);
    return value;
}

/// The system may have stored the zero that it found behind the text.
std::wstring textOf(const StoredValue& value) {
    std::wstring text(reinterpret_cast<const wchar_t*>(value.data.data()), value.data.size() / sizeof(wchar_t));
    if (text.ends_with(L'\0')) text.pop_back();
    return text;
}

class Registry : public testing::Test {
  protected:
    void TearDown() override {
        for (const wchar_t* key : {L"Brasquelin.TestType\\sub", testKey}) RegDeleteKeyW(HKEY_CLASSES_ROOT, key);
    }
};

TEST_F(Registry, ValuesHaveTheTypeThatIsMeant) {
    const std::string key = "Brasquelin.TestType";
    setRegistryValue(RegistryHive::classesRoot, key + "\\sub", "", registryText, "caf\u00E9 %1");
    setRegistryValue(RegistryHive::classesRoot, key, "expand", REG_EXPAND_SZ, "%ComSpec%");
    setRegistryValue(RegistryHive::classesRoot, key, "n", registryNumber, "258");
    setRegistryValue(RegistryHive::classesRoot, std::string(100000, 'x'), "", registryText, "x");
    setRegistryValue(RegistryHive::classesRoot, key, "bad", registryNumber, "none");
    const StoredValue text = stored(L"Brasquelin.TestType\\sub", nullptr);
    EXPECT_EQ(text.type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(textOf(text), L"caf\u00E9 %1");
    EXPECT_EQ(stored(testKey, L"expand").type, static_cast<DWORD>(REG_SZ)) << "any other type is written as text";
    EXPECT_EQ(stored(testKey, L"n").type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(stored(testKey, L"n").data, (std::vector<BYTE>{2, 1, 0, 0}));
    EXPECT_EQ(stored(testKey, L"bad").type, 0U) << "failures are silent";
}

TEST_F(Registry, WhoMayNotWriteForAllWritesForOneself) {
    // Below a key that is gone nothing can be created.
    constexpr const wchar_t* goneKey = L"Software\\Brasquelin.Gone";
    HKEY gone = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, goneKey, &gone), ERROR_SUCCESS);
    RegDeleteKeyW(HKEY_CURRENT_USER, goneKey);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, gone), ERROR_SUCCESS);
    setRegistryValue(RegistryHive::classesRoot, "Brasquelin.TestType\\sub", "", registryText, "own");
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(gone);
    wchar_t text[8] = L"";
    DWORD size = sizeof text;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Classes\\Brasquelin.TestType\\sub", nullptr, RRF_RT_REG_SZ, nullptr,
                 text, &size);
    EXPECT_STREQ(text, L"own");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\Brasquelin.TestType");
}

}  // namespace
}  // namespace brasquelin
