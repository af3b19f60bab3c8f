#include <windows.h>
#include <commctrl.h>

#include <array>
#include <string>
#include <vector>

#include "forms/win32/TimeFormat.h"
#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

class frmPickers : public Form {
  public:
    frmPickers() : Form("frmPickers") {}
    DateTimePicker dtDate{this, "dtDate"};
    DateTimePicker dtTime{this, "dtTime"};
    DateTimePicker dtpTime{this, "dtpTime"};

    void Design() override {
        width = 6000;
        height = 3000;
        dtDate.Place(120, 120, 2000, 300);
        dtTime.customFormat = "h:mm tt";
        dtTime.upDown = true;
        dtTime.Place(120, 600, 2000, 300);
        dtpTime.customFormat = "hh:mm tt";
        dtpTime.upDown = true;
        dtpTime.Place(120, 1200, 2000, 300);
    }
};

// The formats that native pickers of this thread have been given.
std::vector<std::wstring>& Formats() {
    static std::vector<std::wstring> formats;
    return formats;
}

LRESULT CALLBACK NoteFormat(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message.message == DTM_SETFORMATW) {
        const auto* format = reinterpret_cast<const wchar_t*>(message.lParam);
        Formats().push_back(format != nullptr ? std::wstring(format) : std::wstring());
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

class UsersSetting {
  public:
    explicit UsersSetting(LCTYPE settingKind) : kind(settingKind) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, before.data(), static_cast<int>(before.size()));
    }
    ~UsersSetting() { Set(before.data()); }
    UsersSetting(const UsersSetting&) = delete;
    UsersSetting& operator=(const UsersSetting&) = delete;
    void Set(const wchar_t* value) const {
        EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, kind, value));
    }

  private:
    LCTYPE kind;
    std::array<wchar_t, 80> before{};
};

// The default settings of a locale.
struct Settings {
    const wchar_t* name;
    const wchar_t* morning;
    const wchar_t* afternoon;
    const wchar_t* calendar;
    bool has24Hours;  // in the pickers
};

const std::array<Settings, 7> locales{{{L"en-US", L"AM", L"PM", L"1", false},
                                       {L"de-DE", L"", L"", L"1", true},
                                       {L"fr-FR", L"", L"", L"1", true},
                                       {L"ja-JP", L"\u5348\u524d", L"\u5348\u5f8c", L"1", false},
                                       {L"ar-SA", L"\u0635", L"\u0645", L"23", false},
                                       {L"th-TH", L"AM", L"PM", L"7", false},
                                       {L"both marks alike", L"h", L"h", L"1", true}}};

class DateTimePickerTest : public WindowTest<frmPickers> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Formats().clear();
        hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &NoteFormat, nullptr, ::GetCurrentThreadId());
    }
    void TearDown() override {
        ::UnhookWindowsHookEx(hook);
        WindowTest::TearDown();
    }
    static SYSTEMTIME Shown(DateTimePicker& picker) {
        SYSTEMTIME time{};
        ::SendMessageW(HandleOf(picker), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
        return time;
    }
    void Choose(const Settings& locale) const {
        morning.Set(locale.morning);
        afternoon.Set(locale.afternoon);
        calendar.Set(locale.calendar);
    }
    // How the system writes a time in this format.
    static std::wstring Written(const std::wstring& format, WORD hour) {
        SYSTEMTIME time{};
        time.wHour = hour;
        time.wMinute = 30;
        std::array<wchar_t, 80> text{};
        ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, format.c_str(), text.data(),
                         static_cast<int>(text.size()));
        return text.data();
    }

    UsersSetting morning{LOCALE_S1159};
    UsersSetting afternoon{LOCALE_S2359};
    UsersSetting calendar{LOCALE_ICALENDARTYPE};
    HHOOK hook = nullptr;
};

}  // namespace

TEST_F(DateTimePickerTest, FormatsHave24HoursIfTheLocaleHasNoMarks) {
    const std::wstring none;
    EXPECT_EQ(UnambiguousTimeFormat(L"h:mm tt", none, none), L"H:mm");
    EXPECT_EQ(UnambiguousTimeFormat(L"hh:mm tt", none, none), L"HH:mm");
    EXPECT_EQ(UnambiguousTimeFormat(L"tt h:mm", none, none), L"H:mm");
    EXPECT_EQ(UnambiguousTimeFormat(L"h:mm t", none, L"PM"), L"H:mm");
    EXPECT_EQ(UnambiguousTimeFormat(L"h:mm 'that' tt", L"x", L"x"), L"H:mm 'that'");
    EXPECT_EQ(UnambiguousTimeFormat(L"h:mm tt", L"AM", L"PM"), L"h:mm tt");
    EXPECT_EQ(UnambiguousTimeFormat(L"h:mm", none, none), L"h:mm");
    EXPECT_EQ(UnambiguousTimeFormat(none, none, none), none);
}

TEST_F(DateTimePickerTest, MorningAndEveningDifferInEachLocale) {
    for (const Settings& locale : locales) {
        SCOPED_TRACE(testing::Message() << locale.name);
        Choose(locale);
        Formats().clear();
        Show();
        ASSERT_EQ(Formats().size(), 3U);
        EXPECT_TRUE(Formats()[0].empty());
        EXPECT_EQ(Formats()[1], locale.has24Hours ? L"H:mm" : L"h:mm tt");
        EXPECT_EQ(Formats()[2], locale.has24Hours ? L"HH:mm" : L"hh:mm tt");
        for (const std::wstring& format : {Formats()[1], Formats()[2]}) {
            EXPECT_NE(Written(format, 6), Written(format, 18)) << testing::Message() << format;
        }
        EXPECT_EQ(Window().dtTime.customFormat(), "h:mm tt");
        EXPECT_EQ(Window().dtpTime.customFormat(), "hh:mm tt");
        for (const int hour : {0, 6, 12, 18}) {
            Start([hour] {
                Window().dtDate.value = base::DateTime::FromDate(2031, 6, 2);
                Window().dtTime.value = base::DateTime::FromTime(hour, 30, 0);
                Window().dtpTime.value = base::DateTime::FromTime(hour, 30, 0);
            });
            EXPECT_EQ(Shown(Window().dtTime).wHour, hour);
            EXPECT_EQ(Shown(Window().dtpTime).wHour, hour);
        }
        const SYSTEMTIME date = Shown(Window().dtDate);
        EXPECT_EQ(date.wYear, 2031);
        EXPECT_EQ(date.wMonth, 6);
        EXPECT_EQ(date.wDay, 2);
        Start([] { Window().Unload(); });
    }
}

TEST_F(DateTimePickerTest, FollowsTheUsersFormats) {
    Choose(locales[0]);
    Show();
    const auto reported = [](const wchar_t* setting) {
        Formats().clear();
        ::SendMessageW(::FindWindowW(L"FormsUtility", nullptr), WM_SETTINGCHANGE, 0,
                       reinterpret_cast<LPARAM>(setting));
        return Formats();
    };
    Choose(locales[1]);
    EXPECT_TRUE(reported(L"Environment").empty());
    EXPECT_TRUE(reported(nullptr).empty());
    EXPECT_EQ(reported(L"intl"), (std::vector<std::wstring>{std::wstring(), L"H:mm", L"HH:mm"}));
    Choose(locales[0]);
    EXPECT_EQ(reported(L"intl"),
              (std::vector<std::wstring>{std::wstring(), L"h:mm tt", L"hh:mm tt"}));
}

}  // namespace forms::win32
