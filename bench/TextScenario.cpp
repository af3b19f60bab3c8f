#include <windows.h>

#include "bench/Report.h"
#include "bench/Rest.h"
#include "bench/Scenarios.h"
#include "bench/Subject.h"
#include "tests/windows/Wait.h"

namespace bench {

using driver::Failure;
using driver::Window;

namespace {

constexpr WPARAM bareCommand = 200;  // see ActionsBaseline.cpp

int CountMenus() {
    int count = 0;
    HWND menu = nullptr;
    while ((menu = ::FindWindowExW(nullptr, menu, L"#32768", nullptr)) != nullptr) {
        count += ::IsWindowVisible(menu) != 0 ? 1 : 0;
    }
    return count;
}

void PressTimes(const Window& receiver, WPARAM key, int times) {
    for (int time = 0; time < times; ++time) {
        receiver.Press(key);
    }
}

// Opens the menu of the text and selects an entry of one of its submenus. Numbers count from 0.
// Returns when the entry is highlighted. The caller then presses Enter.
void SelectEntry(const Window& text, int submenu, int entry) {
    const LPARAM place = MAKELPARAM(50, 50);
    text.Post(WM_RBUTTONDOWN, MK_RBUTTON, place);
    text.Post(WM_RBUTTONUP, 0, place);
    Await("menu", [] { return CountMenus() == 1; });
    PressTimes(text, VK_DOWN, 1 + submenu);
    text.Press(VK_RIGHT);
    Await("submenu", [] { return CountMenus() == 2; });
    PressTimes(text, VK_DOWN, entry);
    // Let the submenu be painted. The measured time begins later, with the Enter key.
    constexpr DWORD painting = 50;  // milliseconds
    ::Sleep(painting);
}

// Chooses the two entries of the submenu in turn and measures each choice. The baseline has no
// menu, so its note gets a command instead.
void MeasureChoices(const char* name, const Subject& subject, const Window& text, int submenu,
                    const int (&entries)[2], int times, LRESULT (*look)(const Window&)) {
    const Window note = text.Parent();
    for (int time = 0; time < times; ++time) {
        const LRESULT before = look(text);
        if (!subject.IsBaseline()) {
            SelectEntry(text, submenu, entries[time % 2]);
        }
        const auto press = [&] {
            if (subject.IsBaseline()) {
                note.Send(WM_COMMAND, bareCommand + static_cast<WPARAM>(submenu));
            } else {
                text.Press(VK_RETURN);
            }
        };
        const auto done = [&] {
            return CountMenus() == 0 && IsAtRest(note) &&
                   (subject.IsBaseline() || look(text) != before);
        };
        Report(name, Measure(name, press, done));
    }
}

// The colour of a point of the screen in the upper left corner of the text.
LRESULT ColorOf(const Window& text) {
    const POINT corner = text.ClientOrigin();
    HDC screen = ::GetDC(nullptr);
    const COLORREF color = ::GetPixel(screen, corner.x + 1, corner.y + 1);
    ::ReleaseDC(nullptr, screen);
    return static_cast<LRESULT>(color);
}

// The height of a line, in pixels.
LRESULT LineHeightOf(const Window& text) {
    const auto topOf = [&text](LRESULT line) {
        const LRESULT start = text.Send(EM_LINEINDEX, static_cast<WPARAM>(line));
        return HIWORD(text.Send(EM_POSFROMCHAR, static_cast<WPARAM>(start)));
    };
    const LRESULT first = text.Send(EM_GETFIRSTVISIBLELINE);
    return topOf(first + 1) - topOf(first);
}

}  // namespace

void ChangeText(const Settings& settings) {
    const Subject subject(settings.executable, 1, settings.children);
    subject.AwaitStart();
    const Window note = subject.Note(1);
    note.Restore();
    Await("restore", [&] { return IsAtRest(note) && !note.ChildrenOfClass("Edit").empty(); });
    const Window text = note.Only("Edit");
    const LRESULT middle = text.Send(WM_GETTEXTLENGTH) / 2;
    text.Send(EM_SETSEL, static_cast<WPARAM>(middle), middle);
    text.Send(EM_SCROLLCARET);
    for (int key = 0; key < settings.times; ++key) {
        const auto letter = static_cast<WPARAM>('a' + key % 26);
        const double start = Now();
        ::SendMessageW(text.handle, WM_CHAR, letter, 1);
        ::SendMessageW(text.handle, WM_PAINT, 0, 0);
        Report("key", Now() - start);
    }
    if (text.Send(WM_GETTEXTLENGTH) / 2 < middle + settings.times / 2) {
        throw Failure("the keys did not arrive");
    }
    MeasureChoices("colour", subject, text, 0, {1, 4}, settings.times, &ColorOf);
    MeasureChoices("size", subject, text, 1, {0, 2}, (settings.times + 4) / 5, &LineHeightOf);
}

}  // namespace bench
