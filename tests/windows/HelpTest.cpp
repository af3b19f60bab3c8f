#include <windows.h>
#include <shellapi.h>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"

namespace driver {

using forms::win32::Narrow;
using forms::win32::Wide;

namespace {

// The window of the system's viewer with the program's help file.
Window HelpWindow() { return Window(::FindWindowW(nullptr, L"Jotwright Help")); }

void ExpectHelpAndCloseIt() {
    WaitUntil("the help is shown", [] { return HelpWindow() && HelpWindow().IsVisible(); });
    const Window help = HelpWindow();
    help.Close();
    WaitUntil("the help has gone", [&] { return !help.Exists(); });
}

// The window with this caption, if it belongs to a process of this executable.
Window WindowOfProgram(const std::string& caption, const std::string& executable) {
    const Window found(::FindWindowW(nullptr, Wide(caption).c_str()));
    DWORD process = 0;
    ::GetWindowThreadProcessId(found.handle, &process);
    HANDLE handle = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (handle == nullptr) {
        return {};
    }
    wchar_t path[MAX_PATH]{};
    DWORD length = MAX_PATH;
    const bool known = ::QueryFullProcessImageNameW(handle, 0, path, &length) != 0;
    ::CloseHandle(handle);
    return known && Narrow(path) == executable ? found : Window();
}

}  // namespace

class Help : public DriverTest {};

TEST_F(Help, TheMenuOpensTheHelpFile) {
    const Window main = StartProgram();
    ASSERT_FALSE(HelpWindow());
    ChooseFromMenuBar(program, main, {2, 1});
    ExpectHelpAndCloseIt();
    ExitProgram();
}

TEST_F(Help, TheButtonOfANoteOpensTheHelpFile) {
    const Window main = StartProgram();
    const Window editor = MakeNote(main, "Dentist");
    ASSERT_FALSE(HelpWindow());
    PressToolbar(editor.Only("ToolbarWindow32"), 4);
    ExpectHelpAndCloseIt();
    ExitProgram();
}

TEST_F(Help, TheShippedShortcutStartsTheProgram) {
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
    main.Close();
    WaitUntil("the program has ended", [&] { return !main.Exists(); });
}

}  // namespace driver
