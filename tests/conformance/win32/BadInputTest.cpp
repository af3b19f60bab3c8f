#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "forms/win32/BoxText.h"
#include "forms/win32/Utf.h"
#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

using namespace std::string_literals;

class frmInput : public Form {
  public:
    frmInput() : Form("frmInput") {}
    TextBox txtLine{this, "txtLine"};
    TextBox txtNote{this, "txtNote"};
    DateTimePicker dtDate{this, "dtDate"};
    DateTimePicker dtTime{this, "dtTime"};

    void Design() override {
        width = 6000;
        height = 6000;
        txtLine.Place(120, 120, 3000, 300);
        txtNote.multiLine = true;
        txtNote.Place(120, 600, 5000, 3000);
        dtDate.Place(120, 4000, 2000, 300);
        dtTime.customFormat = "h:mm tt";
        dtTime.upDown = true;
        dtTime.Place(2400, 4000, 2000, 300);
    }
};

class BadInputTest : public WindowTest<frmInput> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Show();
    }
    static SYSTEMTIME Shown(DateTimePicker& picker) {
        SYSTEMTIME time{};
        ::SendMessageW(HandleOf(picker), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
        return time;
    }
    static void ExpectShown(DateTimePicker& picker, int year, int month, int day) {
        const SYSTEMTIME time = Shown(picker);
        EXPECT_EQ(time.wYear, year);
        EXPECT_EQ(time.wMonth, month);
        EXPECT_EQ(time.wDay, day);
    }
    // Sends the notification of the native control for a change by the user.
    static void Report(DateTimePicker& picker, const SYSTEMTIME& time) {
        HWND handle = HandleOf(picker);
        NMDATETIMECHANGE change{};
        change.nmhdr.hwndFrom = handle;
        change.nmhdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(handle));
        change.nmhdr.code = DTN_DATETIMECHANGE;
        change.dwFlags = GDT_VALID;
        change.st = time;
        ::SendMessageW(::GetParent(handle), WM_NOTIFY, change.nmhdr.idFrom,
                       reinterpret_cast<LPARAM>(&change));
    }
    static void Paste(TextBox& textBox, const std::string& text) {
        const std::wstring wide = Wide(text);
        const std::size_t size = (wide.size() + 1) * sizeof(wchar_t);
        ASSERT_NE(::OpenClipboard(HandleOf(textBox)), 0);
        HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
        std::copy_n(wide.c_str(), wide.size() + 1, static_cast<wchar_t*>(::GlobalLock(memory)));
        ::GlobalUnlock(memory);
        ::EmptyClipboard();
        ::SetClipboardData(CF_UNICODETEXT, memory);
        ::CloseClipboard();
        ::SendMessageW(HandleOf(textBox), EM_SETSEL, 0, -1);
        ::SendMessageW(HandleOf(textBox), WM_PASTE, 0, 0);
    }
};

std::string Repeated(const std::string& piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += piece;
    }
    return text;
}

HWND OpenBox() { return ::FindWindowW(L"#32770", L"Long"); }

}  // namespace

TEST_F(BadInputTest, ABoxWithAnyTextFitsTheScreen) {
    for (const std::string& text : {std::string(65536, 'x'), Repeated("some words ", 65536),
                                    Repeated("line\r\n", 65536), Repeated("\xe6\x97\xa5", 65536)}) {
        ExpectMessage(Narrow(TextThatFits(Wide(text))), "Long", [] {
            RECT place{};
            ASSERT_NE(::GetWindowRect(OpenBox(), &place), 0);
            EXPECT_GE(place.left, 0);
            EXPECT_GE(place.top, 0);
            EXPECT_LE(place.right, ::GetSystemMetrics(SM_CXSCREEN));
            EXPECT_LE(place.bottom, ::GetSystemMetrics(SM_CYSCREEN));
        });
        Start([&text] { MsgBox(text, {}, "Long"); });
    }
}

TEST_F(BadInputTest, AWindowMayHaveACaptionOfAnyLength) {
    Start([] { Window().caption = std::string(1U << 20U, 'x'); });
    EXPECT_EQ(::GetWindowTextLengthW(FormHandle()), 1024);
    Start([] { Default<frmInput>().Unload(); });
    Start([] {
        Window().caption = std::string(1U << 20U, 'x');
        Window().Show();
    });
    EXPECT_TRUE(stand->IsShown(Window()));
}

TEST_F(BadInputTest, DatesBeforeTheNativeControlsRangeAreUnchanged) {
    for (const int year : {100, 1500, 1600, 1601, 1752}) {
        const base::DateTime date = base::DateTime::FromDate(year, 6, 5);
        Start([&date] { Window().dtDate.value = date; });
        ExpectShown(Window().dtDate, 1753, 1, 1);
        EXPECT_EQ(Window().dtDate.value(), date) << year;
    }
    for (const int year : {1753, 1899, 2031, 9999}) {
        Start([year] { Window().dtDate.value = base::DateTime::FromDate(year, 12, 30); });
        ExpectShown(Window().dtDate, year, 12, 30);
    }
}

TEST_F(BadInputTest, ATimePickerTakesTheTimeOfAnyDate) {
    Start([] {
        Window().dtTime.value = base::Combine(base::DateTime::FromDate(1066, 10, 14),
                                              base::DateTime::FromTime(9, 31, 0));
    });
    EXPECT_EQ(Shown(Window().dtTime).wHour, 9);
    EXPECT_EQ(Shown(Window().dtTime).wMinute, 31);
}

TEST_F(BadInputTest, ADateThatOnlyTheNativeControlAllowsIsRejected) {
    const base::DateTime date = base::DateTime::FromDate(2031, 6, 2);
    Start([&date] { Window().dtDate.value = date; });
    for (const SYSTEMTIME& time : {SYSTEMTIME{30000, 1, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{},
                                   SYSTEMTIME{2031, 2, 0, 30, 0, 0, 0, 0}}) {
        Report(Window().dtDate, time);
        EXPECT_EQ(Window().dtDate.value(), date);
        ExpectShown(Window().dtDate, 2031, 6, 2);
    }
    Report(Window().dtDate, SYSTEMTIME{2032, 2, 0, 29, 0, 0, 0, 0});
    EXPECT_EQ(Window().dtDate.value(), base::DateTime::FromDate(2032, 2, 29));
}

// The lines are of a usual length, because some native controls take minutes to wrap one line of 64
// KiB.
TEST_F(BadInputTest, PastedTextIsUnchanged) {
    for (const std::string& text :
         {std::string(8192, 'x'), Repeated(Repeated("x", 500) + "\r\n", 65536),
          Repeated("0123456789abcde\r\n", 1U << 20U),
          Repeated("\xf0\x9f\x98\x80\xd7\xa9\xd7\x9c e\xcc\x81\t\xe6\x97\xa5\r\n", 65536),
          std::string("\xe2\x80\xae turned \xe2\x80\xac\x01\x7f")}) {
        Paste(Window().txtNote, text);
        EXPECT_TRUE(Window().txtNote.text() == text) << text.substr(0, 40);
    }
    Paste(Window().txtLine, std::string(1U << 20U, 'x'));
    EXPECT_EQ(Window().txtLine.text().size(), 1U << 20U);
    // Typing continues after the pasted text.
    ::SendMessageW(HandleOf(Window().txtLine), WM_CHAR, 'y', 1);
    EXPECT_EQ(Window().txtLine.text().size(), (1U << 20U) + 1);
    const std::string lines = Repeated("0123456789abcde\r\n", 40000);
    Paste(Window().txtNote, lines);
    ::SendMessageW(HandleOf(Window().txtNote), WM_CHAR, 'y', 1);
    EXPECT_EQ(Window().txtNote.text(), lines + 'y');
}

}  // namespace forms::win32
