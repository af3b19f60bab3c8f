#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "forms/win32/devices/WinFiles.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/windows/RegistryValue.h"

namespace forms::win32 {

namespace {

int ticks = 0;

void CALLBACK CountTick(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
    ++ticks;
}

class RecycleBinTest : public testing::Test {
  protected:
    TempFolder folder;
    WinFiles files;
    const std::string note = folder / "note.txt";
};

}  // namespace

TEST_F(RecycleBinTest, RecycledFilesAreGoneAndNoTimerRunsMeanwhile) {
    ticks = 0;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, CountTick);
    ASSERT_NE(timer, 0U);
    files.Write(note, "x");
    ::Sleep(30);
    files.Recycle(note);
    EXPECT_EQ(ticks, 0);
    ::KillTimer(nullptr, timer);
    EXPECT_FALSE(files.FileExists(note));
}

TEST_F(RecycleBinTest, AFileThatTheShellWouldDestroyIsNotRecycled) {
    const std::wstring explorer = L"Software\\Microsoft\\Windows\\CurrentVersion\\";
    wchar_t root[MAX_PATH]{};
    wchar_t volume[MAX_PATH]{};
    ASSERT_NE(::GetVolumePathNameW(Wide(note).c_str(), root, MAX_PATH), 0);
    ASSERT_NE(::GetVolumeNameForVolumeMountPointW(root, volume, MAX_PATH), 0);
    const std::wstring name = volume;
    const std::size_t brace = name.find(L'{');
    const driver::RegistryValue oneMebibyte(explorer + L"Explorer\\BitBucket\\Volume\\" +
                                                name.substr(brace, name.find(L'}') + 1 - brace),
                                            L"MaxCapacity", 1);
    files.Write(note, std::string((1U << 20U) + 1, 'x'));
    EXPECT_FALSE(files.Recycle(note));
    EXPECT_TRUE(files.FileExists(note));
    files.Write(note, std::string(1U << 20U, 'x'));
    {
        const driver::RegistryValue policy(explorer + L"Policies\\Explorer", L"NoRecycleFiles", 1);
        EXPECT_FALSE(files.Recycle(note));
        EXPECT_TRUE(files.FileExists(note));
    }
    {
        const driver::RegistryValue policy(explorer + L"Policies\\Explorer", L"RecycleBinSize", 0);
        EXPECT_FALSE(files.Recycle(note));
        EXPECT_TRUE(files.FileExists(note));
    }
    EXPECT_TRUE(files.Recycle(note));
    EXPECT_FALSE(files.FileExists(note));
}

}  // namespace forms::win32
