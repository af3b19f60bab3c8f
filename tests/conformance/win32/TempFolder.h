#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "forms/win32/Utf.h"

namespace forms::win32 {

// A new folder in the system's temporary folder. The destructor removes it with its contents.
class TempFolder {
  public:
    TempFolder() {
        wchar_t temp[MAX_PATH + 1]{};
        ::GetTempPathW(MAX_PATH, temp);
        const std::wstring stem =
            std::wstring(temp) + L"jotwright-" + std::to_wstring(::GetTickCount64()) + L"-";
        for (int number = 0; number < 1000; ++number) {
            path = stem + std::to_wstring(number);
            if (::CreateDirectoryW(path.c_str(), nullptr) != 0) {
                return;
            }
        }
        throw std::runtime_error("no folder for temporary files");
    }
    ~TempFolder() { Remove(L"\\\\?\\" + path); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string operator/(const std::string& name) const { return Path() + "\\" + name; }
    std::string Path() const { return Narrow(path); }

  private:
    static void Remove(const std::wstring& folder) {
        WIN32_FIND_DATAW data{};
        HANDLE find = ::FindFirstFileW((folder + L"\\*").c_str(), &data);
        if (find != INVALID_HANDLE_VALUE) {
            do {
                const std::wstring name = data.cFileName;
                const std::wstring entry = folder + L"\\" + name;
                if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                    ::SetFileAttributesW(entry.c_str(), FILE_ATTRIBUTE_NORMAL);
                    ::DeleteFileW(entry.c_str());
                } else if (name != L"." && name != L"..") {
                    Remove(entry);
                }
            } while (::FindNextFileW(find, &data) != 0);
            ::FindClose(find);
        }
        ::RemoveDirectoryW(folder.c_str());
    }

    std::wstring path;
};

}  // namespace forms::win32
