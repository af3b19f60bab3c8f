// The baseline for bench/actions: a bare Windows program that makes and changes the windows of the
// measured actions and does nothing else. It has no notes, no files and no settings. Its windows
// and buttons have the captions of the program's, so that bench/Actions.cpp presses both in the
// same way.
//
// usage: actions_baseline <notes> <child windows of each note>
//
// The notes are windows without children that start minimised. A note gets its children when it is
// opened: bare ones, or, if their number is 0, controls like those of the program's editor. If
// there is only one note, one of its children is a text box with 64 KiB.
#include <windows.h>
#include <commctrl.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench/BareWindow.h"
#include "bench/NoteControls.h"

namespace {

enum Button : WORD {
    Make = 100,
    OpenPanel,
    Exit,
    OpenAll,
    New,
    Edit,
    Erase,
    Close,
    Color = 200,
    Size
};

HWND mainWindow = nullptr;
HWND title = nullptr;
HWND panel = nullptr;
HWND list = nullptr;
std::vector<HWND> notes;
HWND textBox = nullptr;
int rows = 0;
int children = 0;  // in each note; 0: the controls of the program's editor
bool isColored = false;
bool isLarge = false;

HWND MakeControl(HWND parent, const wchar_t* className, const wchar_t* caption, DWORD style,
                 const RECT& place, WORD id) {
    return ::CreateWindowExW(
        0, className, caption, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, place.left,
        place.top, place.right - place.left, place.bottom - place.top, parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr), nullptr);
}

void MakeButton(HWND parent, const wchar_t* caption, int place, Button id) {
    const RECT area{place * 100, 380, place * 100 + 95, 405};
    MakeControl(parent, WC_BUTTONW, caption, WS_TABSTOP, area, id);
}

void MakeMain() {
    mainWindow = MakeBareWindow(L"Jotwright");
    title = MakeControl(mainWindow, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, {0, 0, 200, 24}, 0);
    MakeButton(mainWindow, L"Make &Note", 0, Make);
    MakeButton(mainWindow, L"Notes &Control Panel", 1, OpenPanel);
    MakeButton(mainWindow, L"E&xit", 2, Exit);
}

// The list stores no texts. It requests those that it shows with LVN_GETDISPINFO.
void ShowRows() { ::SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), 0); }

void OnNotify(const NMHDR& header, LPARAM lParam) {
    if (header.code == static_cast<UINT>(LVN_GETDISPINFOW)) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if ((item.mask & LVIF_TEXT) != 0) {
            item.pszText = const_cast<wchar_t*>(L"Alarm Not Set");
        }
    }
}

void ShowPanel() {
    panel = MakeBareWindow(L"Notes Control Panel");
    list = MakeControl(panel, WC_LISTVIEWW, L"",
                       WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS,
                       {0, 30, 440, 330}, 0);
    for (int column = 0; column < 3; ++column) {
        LVCOLUMNW description{};
        description.mask = LVCF_WIDTH;
        description.cx = 140;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&description));
    }
    ShowRows();
    MakeBareChildren(panel, 2);  // the labels
    MakeButton(panel, L"&Open All Notes", 0, OpenAll);
    MakeButton(panel, L"&New", 1, New);
    MakeButton(panel, L"&Edit", 2, Edit);
    MakeButton(panel, L"&Erase", 3, Erase);
    MakeButton(panel, L"&Close", 4, Close);
    ::ShowWindow(panel, SW_SHOW);
    ::SetFocus(list);
}

void ClosePanel() {
    ::DestroyWindow(panel);
    panel = nullptr;
    list = nullptr;
}

HFONT FontOf(int points) {
    constexpr int dpi = 96;
    return ::CreateFontW(-::MulDiv(points, dpi, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                         DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma");
}

void MakeChildren(HWND note) {
    if (children > 0) {
        MakeBareChildren(note, children);
    } else {
        MakeNoteControls(note);
    }
}

void FillNote(HWND note) {
    if (notes.size() == 1) {
        textBox = MakeControl(note, WC_EDITW, L"", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE,
                              {0, 130, 430, 440}, 0);
        std::wstring content;
        while (content.size() < 65536) {
            content += L"Water the plants, and collect the parcel at the post office.\r\n";
        }
        ::SendMessageW(textBox, EM_SETLIMITTEXT, 0, 0);
        ::SendMessageW(textBox, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(12)), FALSE);
        ::SetWindowTextW(textBox, content.c_str());
    }
    MakeChildren(note);
    ::SetFocus(::GetWindow(note, GW_CHILD));
}

void MakeNote() {
    wchar_t text[100]{};
    ::GetWindowTextW(title, text, 100);
    HWND note = MakeBareWindow(text);
    MakeChildren(note);
    ::ShowWindow(note, SW_SHOW);
    ::SetFocus(::GetWindow(note, GW_CHILD));
    ::SetWindowTextW(title, L"");
    ::ShowWindow(mainWindow, SW_HIDE);
}

// If the panel is shown, hides it while the box asks the question, then shows it with the note's
// row, as the program does.
void CloseNote(HWND note) {
    if (panel != nullptr) {
        ::ShowWindow(panel, SW_HIDE);
        ::MessageBoxW(note, L" Would you like to save changes?     ", L"Save Changes?",
                      MB_YESNO | MB_ICONQUESTION);
        ++rows;
        ShowRows();
        ::ShowWindow(panel, SW_SHOW);
    } else {
        ++rows;
    }
    ::DestroyWindow(note);
}

void EraseLastRow() {
    if (::MessageBoxW(panel, L"Would you like to erase        \r\n           ZEBRA?       ",
                      L"Deleting Note", MB_YESNO | MB_ICONERROR) == IDYES) {
        --rows;
        ShowRows();
    }
}

void Press(WORD button) {
    switch (button) {
        case Make:
            MakeNote();
            break;
        case OpenPanel:
            ShowPanel();
            break;
        case OpenAll:
            for (HWND note : notes) {
                ::ShowWindow(note, SW_SHOWNORMAL);
            }
            break;
        case Erase:
            EraseLastRow();
            break;
        case Close:
            ClosePanel();
            break;
        case Exit:
            ::PostQuitMessage(0);
            break;
        case Color:
            isColored = !isColored;
            ::InvalidateRect(textBox, nullptr, TRUE);
            break;
        case Size:
            isLarge = !isLarge;
            ::SendMessageW(textBox, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(isLarge ? 14 : 10)),
                           TRUE);
            break;
        default:
            break;
    }
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isNote = window != mainWindow && window != panel;
    switch (message) {
        case WM_COMMAND:
            Press(LOWORD(wParam));
            return 0;
        case WM_NOTIFY:
            OnNotify(*reinterpret_cast<const NMHDR*>(lParam), lParam);
            return 0;
        case WM_SIZE:
            if (isNote && wParam != SIZE_MINIMIZED && ::IsWindowVisible(window) != 0 &&
                ::GetWindow(window, GW_CHILD) == nullptr) {
                FillNote(window);
            }
            return 0;
        case WM_CTLCOLOREDIT:
            ::SetBkColor(reinterpret_cast<HDC>(wParam), isColored ? 0xFF : 0xFFFFFF);
            return reinterpret_cast<LRESULT>(
                ::GetSysColorBrush(isColored ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0) {
                ::SetFocus(::GetWindow(window, GW_CHILD));
            }
            return 0;
        case WM_CLOSE:
            if (isNote) {
                CloseNote(window);
            }
            return 0;
        case WM_MOUSEMOVE:  // the message of the icon in the notification area
            if (lParam == WM_LBUTTONUP) {
                ::ShowWindow(mainWindow, SW_SHOW);
            }
            return 0;
        default:
            return ::DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        return 2;
    }
    rows = std::atoi(arguments[1]);
    children = std::atoi(arguments[2]);
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC =
        ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_BAR_CLASSES;
    ::InitCommonControlsEx(&controls);
    RegisterBareClasses(&Procedure);
    for (int number = 1; number <= rows; ++number) {
        notes.push_back(MakeBareWindow(L"Note " + std::to_wstring(number)));
        ::ShowWindow(notes.back(), SW_SHOWMINNOACTIVE);
    }
    MakeMain();
    ::ShowWindow(mainWindow, SW_SHOW);
    return RunMessageLoop();
}
