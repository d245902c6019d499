// A key of the running test's own in the class registry, gone again at the test's end.
#pragma once

#include "platform/platform.h"

#include <gtest/gtest.h>

// `path` lies below HKEY_CLASSES_ROOT. The key is there, and open for reading and writing.
class ScratchKey {
public:
    explicit ScratchKey(WideString keyPath) : path(std::move(keyPath))
    {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str()); // what a test that was stopped has left
        EXPECT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key,
                                  nullptr),
                  ERROR_SUCCESS);
    }
    // Named after the test.
    ScratchKey() : ScratchKey(nameOfTest()) {}
    ~ScratchKey()
    {
        RegCloseKey(key);
        RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
    }
    ScratchKey(const ScratchKey &) = delete;
    ScratchKey &operator=(const ScratchKey &) = delete;

    HKEY handle() const { return key; }
    const WideString &name() const { return path; }

    void addKey(const WideString &subKey)
    {
        HKEY added = nullptr;
        ASSERT_EQ(RegCreateKeyExW(key, subKey.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &added, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(added);
    }

    // The terminator is stored with it.
    void setText(const WCHAR *valueName, const WideString &text, DWORD type = REG_SZ)
    {
        ASSERT_EQ(RegSetValueExW(key, valueName, 0, type, reinterpret_cast<const BYTE *>(text.c_str()),
                                 static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR))),
                  ERROR_SUCCESS);
    }

private:
    static WideString nameOfTest()
    {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        return OLESTR("VerdanthPlatformTest.") + WideString(name.begin(), name.end());
    }

    WideString path;
    HKEY key = nullptr;
};
