#include "forms/win32/WindowStyle.h"

#include "forms/win32/Dpi.h"

namespace forms::win32 {

DWORD StyleOf(const Form& form) {
    switch (form.borderStyle) {
        case BorderStyle::Fixed:
            return WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
        case BorderStyle::Sizable:
            return WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
        case BorderStyle::Dialog:
            return WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
        case BorderStyle::None:
            break;
    }
    return WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
}

DWORD ExtendedStyleOf(const Form& form) {
    DWORD style = form.IsTopMost() ? DWORD{WS_EX_TOPMOST} : DWORD{0};
    if (form.borderStyle == BorderStyle::Dialog) {
        style |= WS_EX_DLGMODALFRAME;
    }
    if (form.showInTaskbar) {
        style |= WS_EX_APPWINDOW;
    }
    return style;
}

SIZE FrameSizeOf(const Form& form, int dpi) {
    const RECT frame = FrameAround(StyleOf(form), ExtendedStyleOf(form), form.HasMenuBar(), dpi);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace forms::win32
