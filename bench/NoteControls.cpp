#include "bench/NoteControls.h"

#include <commctrl.h>

namespace {

struct Design {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle;
    RECT place;  // left, top, width, height
    const wchar_t* text;
};

constexpr DWORD shown = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
constexpr DWORD label = WS_CHILD | WS_CLIPSIBLINGS;

const Design designs[] = {
    {WC_EDITW, 0x54031044, WS_EX_CLIENTEDGE, {12, 40, 448, 196}, L""},
    {WC_STATICW, label | WS_GROUP, 0, {24, 266, 116, 17}, L"Select Alarm Date"},
    {DATETIMEPICK_CLASSW, 0x4c030000, WS_EX_CLIENTEDGE, {24, 287, 116, 23}, L""},
    {WC_STATICW, label | WS_GROUP, 0, {148, 266, 116, 17}, L"Select Alarm Time"},
    {DATETIMEPICK_CLASSW, 0x4c030009, WS_EX_CLIENTEDGE, {148, 287, 116, 23}, L""},
    {WC_STATICW, shown | SS_CENTER, 0, {28, 269, 108, 17}, L"May"},
    {WC_STATICW, shown | SS_CENTER, 0, {28, 292, 108, 19}, L"14, 2099"},
    {WC_STATICW, shown | SS_CENTER, 0, {152, 282, 108, 19}, L"9:30:00 AM"},
    {WC_BUTTONW, 0x54032005, 0, {304, 266, 144, 17}, L"Turn On Audio Alarm"},
    {WC_STATICW, shown, 0, {280, 266, 16, 16}, L""},
    {WC_BUTTONW, 0x54032000, 0, {304, 286, 144, 25}, L"&Turn Off Alarm"},
    {WC_STATICW, shown, 0, {280, 290, 16, 16}, L""},
    {WC_BUTTONW, 0x54032000, 0, {12, 337, 180, 25}, L"Hide &System Date/Time"},
    {WC_STATICW, shown, 0, {24, 392, 424, 34}, L"System Date and Time is"},
    {TOOLBARCLASSNAMEW, 0x5403894d, 0, {8, 4, 448, 32}, L"Note"},
    {WC_BUTTONW, 0x54020007, 0, {12, 244, 448, 85}, L" Alarm Set "},
    {WC_BUTTONW, 0x54020007, 0, {12, 374, 448, 57}, L"Current System Time"},
};

HFONT NoteFont() {
    static const HFONT font = [] {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        return ::CreateFontIndirectW(&metrics.lfMessageFont);
    }();
    return font;
}

// Nine buttons with pictures of the system, as many as the editor's toolbar has.
void FillToolbar(HWND toolbar) {
    constexpr int buttons = 9;
    ::SendMessageW(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBADDBITMAP pictures{HINST_COMMCTRL, IDB_STD_SMALL_COLOR};
    ::SendMessageW(toolbar, TB_ADDBITMAP, 0, reinterpret_cast<LPARAM>(&pictures));
    TBBUTTON all[buttons]{};
    for (int button = 0; button < buttons; ++button) {
        all[button].iBitmap = button;
        all[button].idCommand = 1 + button;
        all[button].fsState = TBSTATE_ENABLED;
    }
    ::SendMessageW(toolbar, TB_ADDBUTTONSW, buttons, reinterpret_cast<LPARAM>(all));
}

}  // namespace

void MakeNoteControls(HWND parent) {
    for (const Design& design : designs) {
        HWND control = ::CreateWindowExW(design.extendedStyle, design.className, design.text,
                                         design.style, design.place.left, design.place.top,
                                         design.place.right, design.place.bottom, parent, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(NoteFont()), FALSE);
        if (design.className == designs[14].className) {
            FillToolbar(control);
        }
    }
}
