#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsRegistry.h"

namespace korvanta {
namespace {

constexpr char16_t testKey[] = u"Software\\KorvantaServicesTests";
constexpr char testKeyBytes[] = "Software\\KorvantaServicesTests";

class RegistryTests : public ::testing::Test {
  protected:
    RegistryTests() { ::RegDeleteKeyA(HKEY_CURRENT_USER, testKeyBytes); }
    ~RegistryTests() override { ::RegDeleteKeyA(HKEY_CURRENT_USER, testKeyBytes); }

    std::unique_ptr<RegistryKey> Key() {
        std::unique_ptr<RegistryKey> key;
        EXPECT_EQ(registry_.Create(RegistryHive::CurrentUser, testKey, registryAccess::full, key), 0U);
        return key;
    }
    void SetRaw(const char* name, DWORD type, const void* data, DWORD size) {
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyA(HKEY_CURRENT_USER, testKeyBytes, &key), 0);
        EXPECT_EQ(::RegSetValueExA(key, name, 0, type, static_cast<const BYTE*>(data), size), 0);
        ::RegCloseKey(key);
    }

    WindowsRegistry registry_;
};

TEST_F(RegistryTests, AMissingKeyIsAnErrorAndLeavesNone) {
    std::unique_ptr<RegistryKey> key;
    EXPECT_EQ(registry_.Open(RegistryHive::CurrentUser, testKey, registryAccess::query, key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
}

TEST_F(RegistryTests, TextsAndNumbersComeBack) {
    const std::unique_ptr<RegistryKey> key = Key();
    EXPECT_EQ(key->SetText(u"Text", u"Größe"), 0U);
    EXPECT_EQ(key->SetText(u"Empty", u""), 0U);
    EXPECT_EQ(key->SetText(u"Long", std::u16string(5000, u'é')), 0U);
    EXPECT_EQ(key->SetNumber(u"Number", -7), 0U);

    std::unique_ptr<RegistryKey> reader;
    ASSERT_EQ(registry_.Open(RegistryHive::CurrentUser, testKey, registryAccess::query, reader), 0U);
    std::u16string text = u"before";
    EXPECT_EQ(reader->QueryText(u"Text", text), 0U);
    EXPECT_EQ(text, u"Größe");
    EXPECT_EQ(reader->QueryText(u"Empty", text), 0U);
    EXPECT_EQ(text, u"");
    EXPECT_EQ(reader->QueryText(u"Long", text), 0U);
    EXPECT_EQ(text, std::u16string(5000, u'é'));
    std::int32_t number = 0;
    EXPECT_EQ(reader->QueryNumber(u"Number", number), 0U);
    EXPECT_EQ(number, -7);
}

TEST_F(RegistryTests, AMissingValueIsAnErrorAndChangesNothing) {
    const std::unique_ptr<RegistryKey> key = Key();
    std::u16string text = u"before";
    std::int32_t number = 5;
    EXPECT_EQ(key->QueryText(u"Missing", text), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key->QueryNumber(u"Missing", number), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(text, u"before");
    EXPECT_EQ(number, 5);
}

TEST_F(RegistryTests, AValueOfAnotherTypeIsAnError) {
    const std::unique_ptr<RegistryKey> key = Key();
    key->SetText(u"Text", u"12");
    key->SetNumber(u"Number", 12);
    SetRaw("Short", REG_DWORD, "\1", 1);
    std::u16string text;
    std::int32_t number = 0;
    EXPECT_EQ(key->QueryText(u"Number", text), ERROR_INVALID_DATA);
    EXPECT_EQ(key->QueryNumber(u"Text", number), ERROR_INVALID_DATA);
    EXPECT_EQ(key->QueryNumber(u"Short", number), ERROR_INVALID_DATA);
}

TEST_F(RegistryTests, AnExpandableTextStaysUnexpanded) {
    SetRaw("Path", REG_EXPAND_SZ, "%TEMP%\\x", 9);
    std::u16string text;
    EXPECT_EQ(Key()->QueryText(u"Path", text), 0U);
    EXPECT_EQ(text, u"%TEMP%\\x");
}

TEST_F(RegistryTests, TerminatingZerosAreNoPartOfAText) {
    SetRaw("Many", REG_SZ, "abc\0\0", 6);
    SetRaw("None", REG_SZ, "abc", 3);
    std::u16string text;
    EXPECT_EQ(Key()->QueryText(u"Many", text), 0U);
    EXPECT_EQ(text, u"abc");
    EXPECT_EQ(Key()->QueryText(u"None", text), 0U);
    EXPECT_EQ(text, u"abc");
}

TEST_F(RegistryTests, AKeyOpenForQueriesCannotBeWrittenOnTheNtFamily) {
    Key();
    std::unique_ptr<RegistryKey> reader;
    ASSERT_EQ(registry_.Open(RegistryHive::CurrentUser, testKey, registryAccess::query, reader), 0U);
    const std::uint32_t result = reader->SetText(u"Text", u"x");
    // Windows 9x has no rights to check.
    EXPECT_EQ(result, textCalls::Choose<std::uint32_t>(ERROR_SUCCESS, ERROR_ACCESS_DENIED));
}

}  // namespace
}  // namespace korvanta
