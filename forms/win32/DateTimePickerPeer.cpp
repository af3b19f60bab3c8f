#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "forms/Gestures.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"
#include "forms/win32/TimeFormat.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

class DateTimePickerPeer : public Peer {
  public:
    DateTimePickerPeer(FormWindow& formWindow, DateTimePicker& peerPicker)
        : Peer(formWindow, peerPicker), picker(peerPicker) {}

    void Create() override {
        upDown = picker.upDown;
        const DWORD style = upDown ? DTS_UPDOWN | DTS_TIMEFORMAT : DTS_SHORTDATEFORMAT;
        CreateNative(DATETIMEPICK_CLASSW, std::string(), WS_TABSTOP | style);
        SetCalendarFont();
        ShowFormat();
        ShowValue();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Value) {
            ShowValue();
        } else if (aspect == Aspect::Format) {
            if (upDown != picker.upDown()) {
                CreateAgain();
            } else {
                ShowFormat();
            }
        } else {
            Peer::Apply(aspect);
        }
    }

    // The native control reads the user's formats only when it is created or gets this message.
    void Restyle() override {
        Peer::Restyle();
        SetCalendarFont();
        ::SendMessageW(handle, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"intl"));
        ShowFormat();
    }

    std::optional<LRESULT> OnNotify(NMHDR& header) override {
        if (header.code != DTN_DATETIMECHANGE || settingValue) {
            return std::nullopt;
        }
        const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(header);
        if (change.dwFlags == GDT_VALID) {
            Adopt(change.st);
        }
        return 0;
    }

  private:
    bool ShowsTime() const {
        return picker.customFormat().empty()
                   ? picker.upDown()
                   : picker.customFormat().find_first_of("hHmt") != std::string::npos;
    }

    void SetCalendarFont() const {
        ::SendMessageW(handle, DTM_SETMCFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    }

    void ShowFormat() {
        const std::wstring format = UnambiguousTimeFormat(Wide(picker.customFormat()));
        ::SendMessageW(handle, DTM_SETFORMATW, 0,
                       format.empty() ? 0 : reinterpret_cast<LPARAM>(format.c_str()));
    }

    void Adopt(const SYSTEMTIME& time) {
        if (ShowsTime()) {
            gestures::Pick(picker, base::DateTime::FromTime(time.wHour, time.wMinute, 0));
        } else if (base::DateTime::IsValidDate(time.wYear, time.wMonth, time.wDay)) {
            gestures::Pick(picker, base::DateTime::FromDate(time.wYear, time.wMonth, time.wDay));
        } else {
            // The native control accepts years that the program does not support.
            ShowValue();
        }
    }

    void ShowValue() {
        const base::DateTime value = picker.value;
        // If the control shows a time, it still needs a date, which is not visible. It accepts no
        // date before firstDay. For an earlier value it shows firstDay, and the picker's value does
        // not change.
        static const base::DateTime anyDay = base::DateTime::FromDate(2000, 1, 1);
        static const base::DateTime firstDay = base::DateTime::FromDate(1753, 1, 1);
        const base::DateTime day = ShowsTime() ? anyDay : std::max(value, firstDay);
        SYSTEMTIME time{};
        time.wYear = static_cast<WORD>(day.Year());
        time.wMonth = static_cast<WORD>(day.Month());
        time.wDay = static_cast<WORD>(day.Day());
        time.wHour = static_cast<WORD>(value.Hour());
        time.wMinute = static_cast<WORD>(value.Minute());
        time.wSecond = static_cast<WORD>(value.Second());
        if (!Shows(time)) {
            settingValue = true;
            ::SendMessageW(handle, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
            settingValue = false;
        }
    }

    // Do not set a value that the control already shows: the control would restart the field in
    // which the user is typing.
    bool Shows(const SYSTEMTIME& time) const {
        SYSTEMTIME shown{};
        ::SendMessageW(handle, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
        if (ShowsTime()) {
            return shown.wHour == time.wHour && shown.wMinute == time.wMinute;
        }
        return shown.wYear == time.wYear && shown.wMonth == time.wMonth && shown.wDay == time.wDay;
    }

    // A native control cannot change between a calendar and arrows, so a new one replaces it.
    void CreateAgain() {
        HWND before = handle;
        const bool hadFocus = ::GetFocus() == before;
        Create();
        ::SetWindowPos(handle, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        HWND made = handle;
        DestroyNative(before);
        handle = made;
        if (hadFocus) {
            ::SetFocus(handle);
        }
    }

    DateTimePicker& picker;
    bool upDown = false;
    bool settingValue = false;
};

}  // namespace

std::unique_ptr<Peer> MakeDateTimePickerPeer(FormWindow& window, DateTimePicker& picker) {
    return std::make_unique<DateTimePickerPeer>(window, picker);
}

}  // namespace forms::win32
