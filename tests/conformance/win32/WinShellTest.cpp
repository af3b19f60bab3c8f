#include <windows.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <shlobj.h>

#include <string>
#include <thread>
#include <vector>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/Handle.h"
#include "forms/win32/devices/ProgramPath.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinShell.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

using testing_support::ErrorOf;

TEST(WinShellTest, AMissingDocumentGivesAResultCode) {
    const TempFolder folder;
    WinShell shell;
    EXPECT_LE(shell.Open(folder / "missing.txt", folder.Path()), 32);
}

// The shell's functions may need COM, which a new thread does not have.
TEST(WinShellTest, OpeningADocumentStartsComInItsThread) {
    APTTYPE kind = APTTYPE_NA;
    HRESULT before = S_OK;
    std::thread([&] {
        APTTYPEQUALIFIER qualifier{};
        before = ::CoGetApartmentType(&kind, &qualifier);
        WinShell(false).Open("C:\\missing\\missing.txt", "C:\\");
        ::CoGetApartmentType(&kind, &qualifier);
    }).join();
    EXPECT_EQ(before, CO_E_NOTINITIALIZED) << "what follows would prove nothing";
    EXPECT_EQ(kind, APTTYPE_STA);
}

std::wstring TargetOf(const std::string& shortcut) {
    wchar_t target[MAX_PATH]{};
    IShellLinkW* link = nullptr;
    IPersistFile* file = nullptr;
    ::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                       reinterpret_cast<void**>(&link));
    link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file));
    EXPECT_EQ(file->Load(Wide(shortcut).c_str(), STGM_READ), S_OK);
    link->GetPath(target, MAX_PATH, nullptr, SLGP_RAWPATH);
    file->Release();
    link->Release();
    return target;
}

void MakeLink(const std::string& shortcut, const std::wstring& target) {
    IShellLinkW* link = nullptr;
    IPersistFile* file = nullptr;
    ::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                       reinterpret_cast<void**>(&link));
    link->SetPath(target.c_str());
    link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file));
    EXPECT_EQ(file->Save(Wide(shortcut).c_str(), TRUE), S_OK);
    file->Release();
    link->Release();
}

class WinShellShortcutTest : public testing::Test {
  protected:
    void SetUp() override {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        MakeLink(shortcut, ProgramPath());
        if (TargetOf(shortcut) != ProgramPath()) {
            // Wine reads only the target in the system's code page.
            GTEST_SKIP() << "skipped: needs a shell that reads every letter of a shortcut's target";
        }
    }
    void TearDown() override {
        ::DeleteFileW(launcher.c_str());
        ::CoUninitialize();
    }

    // Expects that PointToThisProgram sets the target, and that a second call changes nothing.
    void ExpectTarget(const std::wstring& expected) {
        shell.PointToThisProgram(shortcut);
        EXPECT_EQ(TargetOf(shortcut), expected);
        const std::string bytes = files.Read(shortcut);
        shell.PointToThisProgram(shortcut);
        EXPECT_EQ(files.Read(shortcut), bytes);
    }

    const TempFolder folder;
    const std::string shortcut = folder / "a shortcut.lnk";
    // A file beside this program; TearDown removes it.
    const std::wstring launcher = ProgramFolder() + L"\\WinShellTest launcher.exe";
    WinShell shell;
    WinFiles files;
};

TEST_F(WinShellShortcutTest, ItIsPointedToTheRunningProgram) {
    MakeLink(shortcut, L"C:\\Jotwright\\WinShellTest launcher.exe");
    EXPECT_EQ(TargetOf(shortcut), L"C:\\Jotwright\\WinShellTest launcher.exe");
    ExpectTarget(ProgramPath());
}

TEST_F(WinShellShortcutTest, ALauncherBesideTheProgramStaysTheTarget) {
    files.Write(Narrow(launcher), "");
    MakeLink(shortcut, launcher);
    ExpectTarget(launcher);
}

TEST_F(WinShellShortcutTest, TheLauncherIsFoundInTheProgramsNewFolder) {
    files.Write(Narrow(launcher), "");
    MakeLink(shortcut, L"Q:\\Jotwright\\WinShellTest launcher.exe");
    ExpectTarget(launcher);
}

TEST_F(WinShellShortcutTest, OtherFilesStayUnchanged) {
    files.Write(shortcut, "no shortcut");
    shell.PointToThisProgram(shortcut);
    EXPECT_EQ(files.Read(shortcut), "no shortcut");
    shell.PointToThisProgram(folder / "missing.lnk");
    EXPECT_FALSE(files.FileExists(folder / "missing.lnk"));
}

class WinShellHelpTest : public testing::Test {
  protected:
    class RecordingShell : public WinShell {
      public:
        using WinShell::WinShell;
        int Open(const std::string& document, const std::string& workingFolder) override {
            opened.push_back(document);
            folders.push_back(workingFolder);
            return 33;
        }
        std::vector<std::string> opened;
        std::vector<std::string> folders;
    };

    std::string Make(const std::string& name, std::size_t size) {
        files.Write(folder / name, std::string(size, 'x'));
        return folder / name;
    }

    const TempFolder folder;
    WinFiles files;
};

TEST_F(WinShellHelpTest, WithoutAViewerThePageBesideTheHelpFileIsOpened) {
    const std::string helpFile = Make("some.help.hlp", 1);
    const std::string page = Make("some.help.html", 1);
    RecordingShell shell(false);
    shell.ShowHelp(helpFile, HELP_CONTENTS);
    shell.ShowHelp(helpFile, HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, (std::vector<std::string>{page, page}));
    EXPECT_EQ(shell.folders, (std::vector<std::string>{folder.Path(), folder.Path()}));
}

TEST_F(WinShellHelpTest, ThePageReplacesAMissingHelpFile) {
    const std::string page = Make("a.html", 1);
    RecordingShell shell(true);
    shell.ShowHelp(folder / "a.hlp", HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, std::vector<std::string>{page});
}

TEST_F(WinShellHelpTest, IfBothAreMissingNothingIsOpened) {
    for (const bool hasViewer : {false, true}) {
        RecordingShell shell(hasViewer);
        EXPECT_EQ(ErrorOf([&] { shell.ShowHelp(folder / "missing.hlp", HELP_FORCEFILE); }), 0);
        EXPECT_TRUE(shell.opened.empty());
    }
}

TEST_F(WinShellHelpTest, AStandInDoesNotCountAsAViewer) {
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder / "missing.exe")));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder.Path())));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(Make("stand-in.exe", 12000))));
    EXPECT_TRUE(WinShell::IsHelpViewer(Wide(Make("viewer.exe", 280000))));
}

TEST_F(WinShellHelpTest, TheViewerIsNotAskedForAFileThatItRefuses) {
    const std::string helpFile = Make("a.hlp", 1);
    const std::string page = Make("a.html", 1);
    EXPECT_FALSE(WinShell::IsRefusedByViewer(Wide(helpFile)));
    EXPECT_TRUE(WinShell::IsRefusedByViewer(L"\\\\server\\share\\a.hlp"));
    EXPECT_FALSE(WinShell::IsRefusedByViewer(L"C:\\Jotwright\\a.hlp"));
    // A Greek, a Russian and a Japanese letter. The only code page of Windows that has all three is
    // UTF-8.
    EXPECT_EQ(WinShell::IsRefusedByViewer(L"C:\\\x3C9\x416\x6F22\\a.hlp"), ::GetACP() != CP_UTF8);
    const Handle mark(::CreateFileW(Wide(helpFile + ":Zone.Identifier").c_str(), GENERIC_WRITE, 0,
                                    nullptr, CREATE_ALWAYS, 0, nullptr));
    if (!mark) {
        GTEST_SKIP() << "skipped: needs a disk whose files can have several streams";
    }
    RecordingShell shell(true);
    shell.ShowHelp(helpFile, HELP_CONTENTS);
    EXPECT_EQ(shell.opened, std::vector<std::string>{page});
}

}  // namespace forms::win32
