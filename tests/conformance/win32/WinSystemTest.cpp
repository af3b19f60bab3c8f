#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinSystem.h"

namespace forms::win32 {

TEST(WinSystemTest, TheApplicationFolderHoldsTheProgram) {
    WinSystem system(L"Local\\Unused by tests");
    wchar_t path[2000]{};
    ::GetModuleFileNameW(nullptr, path, 2000);
    const std::string folder = system.ApplicationFolder();
    EXPECT_FALSE(folder.ends_with('\\'));
    EXPECT_TRUE(Narrow(path).starts_with(folder + "\\"));
    EXPECT_EQ(Narrow(path).find('\\', folder.size() + 1), std::string::npos);
}

TEST(WinSystemTest, TheStartupFolderExists) {
    WinSystem system(L"Local\\Unused by tests");
    const std::string folder = system.StartupFolder();
    EXPECT_FALSE(folder.ends_with('\\'));
    const DWORD attributes = ::GetFileAttributesW(Wide(folder).c_str());
    EXPECT_NE(attributes, INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(attributes & FILE_ATTRIBUTE_DIRECTORY, 0U);
}

TEST(WinSystemTest, TheSecondCopyDetectsTheFirst) {
    const std::wstring name = L"Local\\Jotwright.Test." + std::to_wstring(::GetCurrentProcessId());
    {
        WinSystem first(name);
        WinSystem second(name);
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_TRUE(second.PreviousInstance());
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_TRUE(second.PreviousInstance());
    }
    WinSystem third(name);
    EXPECT_FALSE(third.PreviousInstance());
}

TEST(WinSystemTest, VersionIsMajorAndMinor) {
    WinSystem system(L"Local\\Unused by tests");
    EXPECT_GE(system.Version() & 0xffU, 5U);
    EXPECT_LE(system.Version(), 0xffffU);
}

}  // namespace forms::win32
