#include "bench/NoteControls.h"

#include <commctrl.h>

#include <string_view>

namespace {

struct Design {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle;
    RECT place;  // left, top, width, height
    const wchar_t* text;
};

constexpr DWORD hidden = WS_CHILD | WS_CLIPSIBLINGS;
constexpr DWORD shown = hidden | WS_VISIBLE;
constexpr DWORD reachedByTab = WS_GROUP | WS_TABSTOP;
// While the alarm is set, the fields for its date and time are hidden and disabled.
constexpr DWORD picker = hidden | WS_DISABLED | reachedByTab;
constexpr DWORD button = shown | reachedByTab | BS_MULTILINE;
constexpr DWORD frame = shown | WS_GROUP | BS_GROUPBOX;
constexpr DWORD text = shown | reachedByTab | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
constexpr DWORD toolbar = shown | reachedByTab | TBSTYLE_FLAT | TBSTYLE_TRANSPARENT |
                          TBSTYLE_TOOLTIPS | CCS_TOP | CCS_NOPARENTALIGN | CCS_NORESIZE |
                          CCS_NODIVIDER;

const Design designs[] = {
    {WC_EDITW, text, WS_EX_CLIENTEDGE, {12, 40, 448, 196}, L""},
    {WC_STATICW, hidden | WS_GROUP, 0, {24, 266, 116, 17}, L"Select Alarm Date"},
    {DATETIMEPICK_CLASSW, picker, WS_EX_CLIENTEDGE, {24, 287, 116, 23}, L""},
    {WC_STATICW, hidden | WS_GROUP, 0, {148, 266, 116, 17}, L"Select Alarm Time"},
    {DATETIMEPICK_CLASSW, picker | DTS_TIMEFORMAT, WS_EX_CLIENTEDGE, {148, 287, 116, 23}, L""},
    {WC_STATICW, shown | SS_CENTER, 0, {28, 269, 108, 17}, L"May"},
    {WC_STATICW, shown | SS_CENTER, 0, {28, 292, 108, 19}, L"14, 2099"},
    {WC_STATICW, shown | SS_CENTER, 0, {152, 282, 108, 19}, L"9:30:00 AM"},
    {WC_BUTTONW, button | BS_3STATE, 0, {304, 266, 144, 17}, L"Turn On Audio Alarm"},
    {WC_STATICW, shown, 0, {280, 266, 16, 16}, L""},
    {WC_BUTTONW, button, 0, {304, 286, 144, 25}, L"&Turn Off Alarm"},
    {WC_STATICW, shown, 0, {280, 290, 16, 16}, L""},
    {WC_BUTTONW, button, 0, {12, 337, 180, 25}, L"Hide &System Date/Time"},
    {WC_STATICW, shown, 0, {24, 392, 424, 34}, L"System Date and Time is"},
    {TOOLBARCLASSNAMEW, toolbar, 0, {8, 4, 448, 32}, L"Note"},
    {WC_BUTTONW, frame, 0, {12, 244, 448, 85}, L" Alarm Set "},
    {WC_BUTTONW, frame, 0, {12, 374, 448, 57}, L"Current System Time"},
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

// Adds as many buttons as the editor's toolbar has, with pictures of the system.
void FillToolbar(HWND control) {
    constexpr int buttons = 6;
    ::SendMessageW(control, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBADDBITMAP pictures{HINST_COMMCTRL, IDB_STD_SMALL_COLOR};
    ::SendMessageW(control, TB_ADDBITMAP, 0, reinterpret_cast<LPARAM>(&pictures));
    TBBUTTON all[buttons]{};
    for (int index = 0; index < buttons; ++index) {
        all[index].iBitmap = index;
        all[index].idCommand = 1 + index;
        all[index].fsState = TBSTATE_ENABLED;
    }
    ::SendMessageW(control, TB_ADDBUTTONSW, buttons, reinterpret_cast<LPARAM>(all));
}

}  // namespace

void MakeNoteControls(HWND parent) {
    for (const Design& design : designs) {
        HWND control = ::CreateWindowExW(design.extendedStyle, design.className, design.text,
                                         design.style, design.place.left, design.place.top,
                                         design.place.right, design.place.bottom, parent, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(NoteFont()), FALSE);
        if (design.className == std::wstring_view(TOOLBARCLASSNAMEW)) {
            FillToolbar(control);
        }
    }
}
