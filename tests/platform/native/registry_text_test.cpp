#include "platform/native/registry.h"
#include "platform/native/registry_text.h"

#include <gtest/gtest.h>

namespace {

using native::RegistryKey;
using native::RegistryValue;

class RegistryText : public testing::Test {
protected:
    std::shared_ptr<RegistryKey> classes = std::make_shared<RegistryKey>();

    void read(std::u16string_view text) { native::readRegistryText(text, u"\\opt\\library", classes); }

    bool has(std::u16string_view path) const { return classes->find(path) != nullptr; }

    // The value, or one of a type that there isn't.
    RegistryValue valueOf(std::u16string_view path, std::u16string_view name) const
    {
        const std::shared_ptr<RegistryKey> key = classes->find(path);
        if (!key || key->values.find(name) == key->values.end())
            return {0xFFFFFFFF, {}};
        return key->values.find(name)->second;
    }

    std::u16string textOf(std::u16string_view path, std::u16string_view name) const
    {
        return native::textOfBytes(valueOf(path, name).data);
    }
};

} // namespace

TEST_F(RegistryText, HasKeysAndTextValues)
{
    read(u"Windows Registry Editor Version 5.00\r\n\r\n"
         u"[HKEY_CLASSES_ROOT\\CLSID\\{A}]\r\n"
         u"@=\"the default\"\r\n"
         u"\"Name\"=\"Peng-Robinson\"\r\n");
    EXPECT_EQ(textOf(u"CLSID\\{A}", u""), u"the default");
    EXPECT_EQ(textOf(u"clsid\\{a}", u"NAME"), u"Peng-Robinson");
    EXPECT_EQ(valueOf(u"CLSID\\{A}", u"Name").type, REG_SZ);
    EXPECT_EQ(valueOf(u"CLSID\\{A}", u"Name").data.size(), 28u);
}

TEST_F(RegistryText, UndoesEscapes)
{
    read(u"[HKEY_CLASSES_ROOT\\K]\n"
         u"\"a \\\"quoted\\\" name\"=\"C:\\\\Program Files\\\\\\\"x\\\"\"\n");
    EXPECT_EQ(textOf(u"K", u"a \"quoted\" name"), u"C:\\Program Files\\\"x\"");
}

TEST_F(RegistryText, HasNumbersAndBytes)
{
    read(u"[HKEY_CLASSES_ROOT\\K]\n"
         u"\"number\"=dword:0001fF02\n"
         u"\"bytes\"=hex:00,7f,ff\n"
         u"\"none\"=hex(0):\n"
         u"\"expand\"=hex(2):25,00,41,00,25,00,00,00\n"
         u"\"several\"=hex(7):61,00,00,00,62,00,00,00,00,00\n");
    EXPECT_EQ(valueOf(u"K", u"number").type, REG_DWORD);
    EXPECT_EQ(valueOf(u"K", u"number").data, (std::vector<BYTE>{0x02, 0xFF, 0x01, 0x00}));
    EXPECT_EQ(valueOf(u"K", u"bytes").type, REG_BINARY);
    EXPECT_EQ(valueOf(u"K", u"bytes").data, (std::vector<BYTE>{0x00, 0x7F, 0xFF}));
    EXPECT_EQ(valueOf(u"K", u"none").type, REG_NONE);
    EXPECT_EQ(valueOf(u"K", u"none").data, std::vector<BYTE>{});
    EXPECT_EQ(valueOf(u"K", u"expand").type, REG_EXPAND_SZ);
    EXPECT_EQ(textOf(u"K", u"expand"), u"%A%");
    EXPECT_EQ(valueOf(u"K", u"several").type, REG_MULTI_SZ);
    EXPECT_EQ(valueOf(u"K", u"several").data.size(), 10u);
}

TEST_F(RegistryText, TakesAServerOfNoBytesForAnEmptyPath)
{
    read(u"[HKEY_CLASSES_ROOT\\CLSID\\{A}\\InprocServer32]\n@=hex(1):\n");
    EXPECT_EQ(valueOf(u"CLSID\\{A}\\InprocServer32", u"").type, REG_SZ);
    EXPECT_EQ(textOf(u"CLSID\\{A}\\InprocServer32", u""), u"");
}

TEST_F(RegistryText, ContinuesLinesOfBytes)
{
    read(u"[HKEY_CLASSES_ROOT\\K]\r\n\"bytes\"=hex:01,02,\\\r\n  03,\\\r\n  04\r\n\"next\"=\"x\"\r\n");
    EXPECT_EQ(valueOf(u"K", u"bytes").data, (std::vector<BYTE>{1, 2, 3, 4}));
    EXPECT_EQ(textOf(u"K", u"next"), u"x");
}

TEST_F(RegistryText, RemovesKeysAndValues)
{
    read(u"[HKEY_CLASSES_ROOT\\A\\B]\n\"v\"=\"1\"\n\"w\"=\"2\"\n[HKEY_CLASSES_ROOT\\C\\D]\n");
    read(u"[HKEY_CLASSES_ROOT\\A\\B]\n\"V\"=-\n[-HKEY_CLASSES_ROOT\\C]\n\"x\"=\"goes nowhere\"\n");
    EXPECT_EQ(valueOf(u"A\\B", u"v").type, 0xFFFFFFFF);
    EXPECT_EQ(textOf(u"A\\B", u"w"), u"2");
    EXPECT_FALSE(has(u"C"));
}

TEST_F(RegistryText, TakesTheTwoNamesOfTheClassesForOnePlace)
{
    read(u"[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{A}]\n@=\"1\"\n"
         u"[hkey_local_machine\\SOFTWARE\\classes\\CLSID\\{B}]\n@=\"2\"\n"
         u"[HKEY_CLASSES_ROOT\\WOW6432Node\\CLSID\\{C}]\n@=\"3\"\n");
    EXPECT_EQ(textOf(u"CLSID\\{A}", u""), u"1");
    EXPECT_EQ(textOf(u"CLSID\\{B}", u""), u"2");
    EXPECT_EQ(textOf(u"WOW6432Node\\CLSID\\{C}", u""), u"3");
}

TEST_F(RegistryText, LeavesOtherRootsOut)
{
    read(u"[HKEY_CURRENT_USER\\Software\\K]\n\"v\"=\"1\"\n[HKEY_LOCAL_MACHINE\\Software\\K]\n\"v\"=\"1\"\n");
    EXPECT_TRUE(classes->keys.empty());
    EXPECT_TRUE(classes->values.empty());
}

TEST_F(RegistryText, PassesOverCommentsAndWhatItDoesNotUnderstand)
{
    read(u"; [HKEY_CLASSES_ROOT\\Commented]\n"
         u"\"before any key\"=\"1\"\n"
         u"[HKEY_CLASSES_ROOT\\K]\n"
         u"; ends in a backslash \\\n"
         u"\"a\"=\"good\"\n"
         u"\"unfinished\n"
         u"\"b\"=\"unfinished\n"
         u"\"c\"=dword:xyz\n"
         u"\"d\"=hex:100\n"
         u"\"e\"=hex:1;2\n"
         u"\"f\"=unknown:1\n"
         u"\"g\"\n"
         u"nonsense\n"
         u"\"h\"=\"good\"\n"
         u"[HKEY_CLASSES_ROOT\\Unfinished\n"
         u"\"i\"=\"goes nowhere\"\n");
    EXPECT_EQ(classes->keys.size(), 1u);
    const std::shared_ptr<RegistryKey> key = classes->find(u"K");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->values.size(), 2u);
    EXPECT_EQ(textOf(u"K", u"a"), u"good");
    EXPECT_EQ(textOf(u"K", u"h"), u"good");
}

TEST_F(RegistryText, CompletesRelativePathsOfServersAlone)
{
    read(u"[HKEY_CLASSES_ROOT\\CLSID\\{A}\\InprocServer32]\n@=\"sub\\\\reference.dll\"\n\"ThreadingModel\"="
         u"\"Apartment\"\n"
         u"[HKEY_CLASSES_ROOT\\CLSID\\{B}\\inprocserver32]\n@=\"C:\\\\full\\\\path.dll\"\n"
         u"[HKEY_CLASSES_ROOT\\CLSID\\{C}\\InprocServer32]\n@=\"/full/path.so\"\n"
         u"[HKEY_CLASSES_ROOT\\CLSID\\{D}\\InprocServer32]\n@=\"\\\\full\\\\path.so\"\n"
         u"[HKEY_CLASSES_ROOT\\CLSID\\{E}\\ProgID]\n@=\"Reference.1\"\n");
    EXPECT_EQ(textOf(u"CLSID\\{A}\\InprocServer32", u""), u"\\opt\\library\\sub\\reference.dll");
    EXPECT_EQ(textOf(u"CLSID\\{A}\\InprocServer32", u"ThreadingModel"), u"Apartment");
    EXPECT_EQ(textOf(u"CLSID\\{B}\\InprocServer32", u""), u"C:\\full\\path.dll");
    EXPECT_EQ(textOf(u"CLSID\\{C}\\InprocServer32", u""), u"/full/path.so");
    EXPECT_EQ(textOf(u"CLSID\\{D}\\InprocServer32", u""), u"\\full\\path.so");
    EXPECT_EQ(textOf(u"CLSID\\{E}\\ProgID", u""), u"Reference.1");
}

TEST(RegistryFileEncoding, IsUtf8WithOrWithoutAMark)
{
    EXPECT_EQ(native::decodeRegistryFile("[\xC3\xA9]"), u"[\u00E9]");
    EXPECT_EQ(native::decodeRegistryFile("\xEF\xBB\xBF[\xC3\xA9]"), u"[\u00E9]");
    EXPECT_EQ(native::decodeRegistryFile(""), u"");
}

TEST(RegistryFileEncoding, IsUtf16WithAMark)
{
    EXPECT_EQ(native::decodeRegistryFile(std::string_view("\xFF\xFE[\0\xE9\0]\0", 8)), u"[\u00E9]");
    EXPECT_EQ(native::decodeRegistryFile("\xFF\xFE"), u"");
}
