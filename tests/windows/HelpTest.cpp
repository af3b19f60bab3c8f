#include <windows.h>
#include <shellapi.h>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinShell.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"
#include "tests/windows/Needs.h"

namespace driver {

using forms::win32::Narrow;
using forms::win32::Wide;
using forms::win32::WinShell;

namespace {

// The path of the executable of the process that owns the window. Empty if there is no such window.
std::string ProgramOf(const Window& window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window.handle, &process);
    HANDLE handle = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (handle == nullptr) {
        return {};
    }
    wchar_t path[MAX_PATH]{};
    DWORD length = MAX_PATH;
    const bool known = ::QueryFullProcessImageNameW(handle, 0, path, &length) != 0;
    ::CloseHandle(handle);
    return known ? Narrow(path) : std::string();
}

// The window with this caption, if it belongs to a process of this executable.
Window WindowOfProgram(const std::string& caption, const std::string& executable) {
    const Window found(::FindWindowW(nullptr, Wide(caption).c_str()));
    return ProgramOf(found) == executable ? found : Window();
}

// The window of the system's viewer with the program's help file. The program has a window with the
// same caption, but does not open it for the help.
Window HelpWindow() { return Window(::FindWindowW(nullptr, L"Jotwright Help")); }

void AddText(const Window& window, std::string& text) {
    for (const Window& child : window.Children()) {
        text += child.Text() + '\n';
        AddText(child, text);
    }
}

// The whole text in the viewer.
std::string TextOf(const Window& window) {
    std::string text;
    AddText(window, text);
    return text;
}

// Whether the viewer shows the contents. No other page lists the topics with a colon after each.
bool IsContents(const std::string& text) {
    return text.find("Special alarms: ") != std::string::npos &&
           text.find("Where your notes are: ") != std::string::npos;
}

void ExpectContentsAndCloseThem() {
    WaitUntil("the help is shown", [] { return HelpWindow() && HelpWindow().IsVisible(); });
    const Window help = HelpWindow();
    EXPECT_TRUE(ProgramOf(help).ends_with("\\winhlp32.exe")) << ProgramOf(help);
    EXPECT_TRUE(ComesTrue([&] { return IsContents(TextOf(help)); })) << TextOf(help);
    help.CloseBox();
    WaitUntil("the help has gone", [&] { return !help.Exists(); });
}

}  // namespace

class HelpTest : public DriverTest {
  protected:
    // Skips the test if the help opens in the browser.
    void NeedViewer() const;
};

void HelpTest::NeedViewer() const {
    const auto inFolder = [](UINT(WINAPI * getFolder)(LPWSTR, UINT)) {
        wchar_t path[MAX_PATH]{};
        getFolder(path, MAX_PATH);
        return WinShell::IsHelpViewer(path + std::wstring(L"\\winhlp32.exe"));
    };
    Need((inFolder(&::GetSystemWindowsDirectoryW) || inFolder(&::GetSystemDirectoryW)) &&
             !WinShell::IsRefusedByViewer(Wide(folder + "\\JOTWRIGHT2.hlp")),
         "a viewer of help files, and a path that it can read");
}

TEST_F(HelpTest, TheMenuOpensTheContents) {
    NeedViewer();
    const Window main = StartProgram();
    ASSERT_FALSE(HelpWindow());
    ChooseFromMenuBar(program, main, {2, 1});
    ExpectContentsAndCloseThem();
    ExitProgram();
}

TEST_F(HelpTest, TheButtonOfANoteOpensTheContents) {
    NeedViewer();
    const Window main = StartProgram();
    const Window editor = MakeNote(main, "Dentist");
    ASSERT_FALSE(HelpWindow());
    ClickToolbar(editor.Only("ToolbarWindow32"), 4);
    ExpectContentsAndCloseThem();
    ExitProgram();
}

TEST_F(HelpTest, F1OpensTheContentsFromEachWindow) {
    NeedViewer();
    const auto pressF1 = [](const Window& window) {
        ASSERT_FALSE(HelpWindow());
        BringUp(window);
        WaitForKeyboard(window);
        hands::PressKeys({VK_F1});
        ExpectContentsAndCloseThem();
    };
    const Window main = StartProgram();
    pressF1(main);
    const Window panel = OpenPanel(main);
    pressF1(panel);
    CloseAndWait(panel);
    pressF1(MakeNote(main, "Dentist"));
    ExitProgram();
}

TEST_F(HelpTest, TheShippedShortcutStartsTheProgram) {
    Need(!IsInTestKit() || executable == "C:\\Jotwright\\Jotwright.exe",
         "the program where its shortcut looks for it");
    const std::string shortcut = folder + "\\Shortcut To Jotwright.lnk";
    const HINSTANCE result =
        ::ShellExecuteW(nullptr, L"open", Wide(shortcut).c_str(), nullptr, L"C:\\", SW_SHOWNORMAL);
    EXPECT_GT(reinterpret_cast<INT_PTR>(result), 32);
    // The splash has the same caption, but no menu bar.
    Window main;
    WaitUntil("the main window is shown", [&] {
        main = WindowOfProgram(mainCaption, executable);
        return main && main.IsVisible() && ::GetMenu(main.handle) != nullptr;
    });
    main.CloseBox();
    WaitUntil("the program has ended", [&] { return !main.Exists(); });
}

}  // namespace driver
