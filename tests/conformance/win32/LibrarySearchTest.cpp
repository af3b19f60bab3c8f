#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "forms/win32/LateLibrary.h"
#include "forms/win32/LibrarySearch.h"
#include "forms/win32/Utf.h"
#include "tests/conformance/win32/TempFolder.h"

namespace forms::win32 {

namespace {

std::wstring loadedPath;
DWORD loadedFlags = 0;

// Acts as LoadLibraryExW on a Windows 7 that does not know LOAD_LIBRARY_SEARCH_SYSTEM32.
HMODULE WINAPI LoadWithoutTheFlag(const wchar_t* path, HANDLE file, DWORD flags) {
    if ((flags & LOAD_LIBRARY_SEARCH_SYSTEM32) != 0) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    loadedPath = path;
    loadedFlags = flags;
    return ::LoadLibraryExW(path, file, flags);
}

}  // namespace

TEST(LibrarySearchTest, ASystemWithoutTheFlagLoadsFromItsFolderToo) {
    wchar_t folder[MAX_PATH]{};
    ASSERT_NE(::GetSystemDirectoryW(folder, MAX_PATH), 0U);
    HMODULE library = LoadSystemLibrary(L"version.dll", &LoadWithoutTheFlag);
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(loadedPath, std::wstring(folder) + L"\\version.dll");
    EXPECT_EQ(loadedFlags, DWORD{LOAD_WITH_ALTERED_SEARCH_PATH});
    ::FreeLibrary(library);
    EXPECT_EQ(LoadSystemLibrary(L"jotwright-missing.dll", &LoadWithoutTheFlag), nullptr);
    EXPECT_EQ(LoadSystemLibrary(L"jotwright-missing.dll"), nullptr);
}

TEST(LibrarySearchTest, NoLibraryOfTheCurrentFolderOrBesideTheProgramIsLoaded) {
    const TempFolder folder;
    const std::wstring planted = L"jotwright-planted.dll";
    wchar_t self[MAX_PATH]{};
    ASSERT_NE(::GetModuleFileNameW(nullptr, self, MAX_PATH), 0U);
    const std::wstring program = self;
    const std::wstring beside = program.substr(0, program.find_last_of(L'\\') + 1) + planted;
    ASSERT_NE(::CopyFileW(self, Wide(folder / Narrow(planted)).c_str(), FALSE), 0);
    wchar_t before[MAX_PATH]{};
    ::GetCurrentDirectoryW(MAX_PATH, before);
    ::SetCurrentDirectoryW(Wide(folder.Path()).c_str());

    static bool isRestricted = false;
    if (!isRestricted) {
        HMODULE library = ::LoadLibraryW(planted.c_str());
        EXPECT_NE(library, nullptr) << "what follows would prove nothing";
        ::FreeLibrary(library);
    }
    RestrictLibrarySearch();
    isRestricted = true;
    EXPECT_EQ(::LoadLibraryW(planted.c_str()), nullptr);
    if (::CopyFileW(self, beside.c_str(), TRUE) != 0) {
        EXPECT_EQ(::LoadLibraryW(planted.c_str()), nullptr);
        ::DeleteFileW(beside.c_str());
    }
    HMODULE system = ::LoadLibraryW(L"version.dll");
    EXPECT_NE(system, nullptr);
    ::FreeLibrary(system);
    ::SetCurrentDirectoryW(before);
}

}  // namespace forms::win32
