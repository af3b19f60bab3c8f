#include <windows.h>
#include <gtest/gtest.h>
#include <winspool.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinClock.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinLocale.h"
#include "forms/win32/devices/WinPictures.h"
#include "forms/win32/devices/WinPrinter.h"
#include "forms/win32/devices/WinSettings.h"
#include "forms/win32/devices/WinShell.h"
#include "forms/win32/devices/WinSound.h"
#include "forms/win32/devices/WinSystem.h"
#include "forms/win32/devices/WinTray.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

namespace {

using testing_support::ErrorOf;

std::string FromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    }
    return bytes;
}

}  // namespace

TEST(MakeDevicesTest, EveryDeviceExistsAndStaysTheSame) {
    const Devices first = MakeDevices();
    const Devices second = MakeDevices();
    EXPECT_NE(first.clock, nullptr);
    EXPECT_NE(first.files, nullptr);
    EXPECT_NE(first.settings, nullptr);
    EXPECT_NE(first.sound, nullptr);
    EXPECT_NE(first.tray, nullptr);
    EXPECT_NE(first.printer, nullptr);
    EXPECT_NE(first.shell, nullptr);
    EXPECT_NE(first.pictures, nullptr);
    EXPECT_NE(first.locale, nullptr);
    EXPECT_NE(first.system, nullptr);
    EXPECT_EQ(first.tray, second.tray);
    EXPECT_EQ(first.files, second.files);
}

TEST(WinClockTest, ReturnsTheLocalTimeToTheSecond) {
    WinClock clock;
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    ::GetLocalTime(&before);
    const base::DateTime now = clock.Now();
    ::GetLocalTime(&after);
    const auto moment = [](const SYSTEMTIME& time) {
        return base::Combine(base::DateTime::FromDate(time.wYear, time.wMonth, time.wDay),
                             base::DateTime::FromTime(time.wHour, time.wMinute, time.wSecond));
    };
    EXPECT_LE(moment(before), now);
    EXPECT_LE(now, moment(after));
}

TEST(WinClockTest, TheSecondChangesWhenItsMillisecondsWrap) {
    WinClock clock;
    constexpr std::int64_t standstill = 100;  // milliseconds
    int changes = 0;
    base::DateTime last = clock.Now();
    int lastMillisecond = clock.MillisecondOfSecond();
    std::int64_t lastLook = clock.MonotonicMilliseconds();
    while (changes < 2) {
        const base::DateTime now = clock.Now();
        const int millisecond = clock.MillisecondOfSecond();
        const std::int64_t look = clock.MonotonicMilliseconds();
        ASSERT_GE(millisecond, 0);
        ASSERT_LE(millisecond, 999);
        if (look - lastLook > standstill) {
            // The machine stood still; the two readings cannot be compared.
        } else if (now != last) {
            ++changes;
            EXPECT_LT(millisecond, 500);
            EXPECT_EQ(now.seconds, last.seconds + 1);
        } else {
            // The second may have changed between the two readings.
            EXPECT_TRUE(millisecond >= lastMillisecond || millisecond < 2 * standstill);
        }
        last = now;
        lastMillisecond = millisecond;
        lastLook = look;
        ::Sleep(5);
    }
}

TEST(WinClockTest, MonotonicTimeAdvances) {
    WinClock clock;
    const auto before = static_cast<std::int64_t>(::GetTickCount64());
    const std::int64_t start = clock.MonotonicMilliseconds();
    ::Sleep(100);
    const std::int64_t passed = clock.MonotonicMilliseconds() - start;
    EXPECT_GE(passed, 90);
    EXPECT_LE(passed, static_cast<std::int64_t>(::GetTickCount64()) - before + 20);
}

class WinSettingsTest : public testing::Test {
  protected:
    WinSettingsTest()
        : root(L"Software\\Jotwright Test " + std::to_wstring(::GetCurrentProcessId())),
          settings(root) {}
    ~WinSettingsTest() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, root.c_str()); }

    const std::wstring root;
    WinSettings settings;
};

TEST_F(WinSettingsTest, WrittenValuesAreReadBack) {
    EXPECT_FALSE(settings.Read("Config", "Alarm").has_value());
    settings.Write("Config", "Alarm", "C:\\a b.wav");
    settings.Write("Options", "Alarm", "");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "C:\\a b.wav");
    EXPECT_EQ(settings.Read("Options", "Alarm"), "");
    EXPECT_FALSE(settings.Read("Config", "Other").has_value());
    settings.Write("Config", "Alarm", "\xe6\x97\xa5 \xf0\x9f\x93\x9d");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "\xe6\x97\xa5 \xf0\x9f\x93\x9d");
    for (const std::size_t length : {127U, 128U, 129U, 5000U}) {
        settings.Write("Config", "Long", std::string(length, 'x'));
        EXPECT_EQ(settings.Read("Config", "Long"), std::string(length, 'x'));
    }
}

TEST_F(WinSettingsTest, ValuesAreTextsBelowTheSection) {
    settings.Write("Config", "Alarm", "1");
    DWORD type = 0;
    EXPECT_EQ(::RegGetValueW(HKEY_CURRENT_USER, (root + L"\\Config").c_str(), L"Alarm", RRF_RT_ANY,
                             &type, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    const DWORD number = 1;
    ::RegSetKeyValueW(HKEY_CURRENT_USER, (root + L"\\Config").c_str(), L"Number", REG_DWORD,
                      &number, sizeof number);
    EXPECT_FALSE(settings.Read("Config", "Number").has_value());
}

// Whether a sound is audible depends on the machine. The test is that no call fails or hangs.
TEST(WinSoundTest, CallsReturn) {
    const TempFolder folder;
    WinSound sound;
    sound.Play(folder / "missing.wav", Sound::Mode::Once);
    sound.Play(folder / "missing.wav", Sound::Mode::Loop);
    sound.Stop();
    sound.Stop();
}

TEST(WinTrayTest, AnIconThatWasNeverAddedCannotBeDeleted) {
    WinTray tray;
    TrayRecord record;
    record.iconId = 1;
    EXPECT_FALSE(tray.Delete(record));
    EXPECT_FALSE(tray.Add(record));  // there is no window that could own it
    EXPECT_FALSE(tray.Delete(record));
}

TEST(WinPrinterTest, WithoutAPrinterPrintingIsAnError) {
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    if (size != 0) {
        GTEST_SKIP() << "there is a printer";
    }
    WinPrinter printer;
    printer.SetFontSize(12);
    EXPECT_EQ(ErrorOf([&] { printer.Print(""); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.Print("text"); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.AbandonDocument(); }), 0);
    EXPECT_EQ(ErrorOf([&] { printer.EndDocument(); }), 0);
}

TEST(WinShellTest, AMissingDocumentGivesAResultCode) {
    const TempFolder folder;
    WinShell shell;
    EXPECT_LE(shell.Open(folder / "missing.txt", folder.Path()), 32);
}

class WinShellHelpTest : public testing::Test {
  protected:
    class RecordingShell : public WinShell {
      public:
        using WinShell::WinShell;
        int Open(const std::string& document, const std::string& workingFolder) override {
            opened.push_back(document);
            folders.push_back(workingFolder);
            return 33;
        }
        std::vector<std::string> opened;
        std::vector<std::string> folders;
    };

    std::string Make(const std::string& name, std::size_t size) {
        files.Write(folder / name, std::string(size, 'x'));
        return folder / name;
    }

    const TempFolder folder;
    WinFiles files;
};

TEST_F(WinShellHelpTest, WithoutAViewerThePageBesideTheHelpFileIsOpened) {
    const std::string helpFile = Make("some.help.hlp", 1);
    const std::string page = Make("some.help.html", 1);
    RecordingShell shell(false);
    shell.ShowHelp(helpFile, HELP_CONTENTS);
    shell.ShowHelp(helpFile, HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, (std::vector<std::string>{page, page}));
    EXPECT_EQ(shell.folders, (std::vector<std::string>{folder.Path(), folder.Path()}));
}

TEST_F(WinShellHelpTest, ThePageReplacesAMissingHelpFile) {
    const std::string page = Make("a.html", 1);
    RecordingShell shell(true);
    shell.ShowHelp(folder / "a.hlp", HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, std::vector<std::string>{page});
}

TEST_F(WinShellHelpTest, IfBothAreMissingNothingIsOpened) {
    for (const bool hasViewer : {false, true}) {
        RecordingShell shell(hasViewer);
        EXPECT_EQ(ErrorOf([&] { shell.ShowHelp(folder / "missing.hlp", HELP_FORCEFILE); }), 0);
        EXPECT_TRUE(shell.opened.empty());
    }
}

TEST_F(WinShellHelpTest, AStandInDoesNotCountAsAViewer) {
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder / "missing.exe")));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder.Path())));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(Make("stand-in.exe", 12000))));
    EXPECT_TRUE(WinShell::IsHelpViewer(Wide(Make("viewer.exe", 280000))));
}

class WinPicturesTest : public testing::Test {
  protected:
    Picture LoadBytes(const std::string& name, const std::string& bytes) {
        files.Write(folder / name, bytes);
        return pictures.Load(folder / name);
    }

    const std::string gif6x7 = FromHex(
        "47494638396106000700f00000ff000000000021f90400000000002c0000000006000700000205848fa9cb5a00"
        "3"
        "b");
    const std::string png2x3 = FromHex(
        "89504e470d0a1a0a0000000d4948445200000002000000030802000000368849d6000000134944415408d763fc"
        "cfc0c0c0c0c0c4804c010014400105e2b7db360000000049454e44ae426082");
    const std::string jpg4x5 = FromHex(
        "ffd8ffe000104a46494600010100000100010000ffdb00430050373c463c32504641465a55505f78c882786e6e"
        "78f5afb991c8ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff"
        "c0000b080005000401011100ffc40014000100000000000000000000000000000000ffc4001410010000000000"
        "0000000000000000000000ffda0008010100003f003fffd9");
    const std::string bmp1x2 = FromHex(
        "424d3e000000000000003600000028000000010000000200000001001800000000000800000000000000000000"
        "0000000000000000000000ff000000ff0000");

    const TempFolder folder;
    WinFiles files;
    WinPictures pictures{files};
};

TEST_F(WinPicturesTest, SizesAreFifteenTwipsAPixel) {
    EXPECT_EQ(LoadBytes("a.gif", gif6x7), (Picture{folder / "a.gif", 90, 105}));
    EXPECT_EQ(LoadBytes("a.png", png2x3), (Picture{folder / "a.png", 30, 45}));
    EXPECT_EQ(LoadBytes("a.jpg", jpg4x5), (Picture{folder / "a.jpg", 60, 75}));
    EXPECT_EQ(LoadBytes("a.bmp", bmp1x2), (Picture{folder / "a.bmp", 15, 30}));
}

TEST_F(WinPicturesTest, IconsAreThirtyTwoPixelsSquare) {
    // One image, 1 by 1 pixel of 24 bits: header, entry, bitmap, colours, mask.
    const std::string icon = FromHex(
        "000001000100"
        "01010000010018003000000016000000"
        "28000000010000000200000001001800000000000800000000000000000000000000000000000000"
        "0000ff0000000000");
    EXPECT_EQ(LoadBytes("a.ico", icon), (Picture{folder / "a.ico", 480, 480}));
    EXPECT_EQ(ErrorOf([&] { LoadBytes("b.ico", icon.substr(0, 30)); }), 481);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("c.ico", icon.substr(0, 5)); }), 481);
}

TEST_F(WinPicturesTest, FilesThatAreNotPicturesRaiseAnError) {
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "missing.gif"); }), 53);
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "missing\\a.gif"); }), 53);
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder.Path()); }), 53);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("text.gif", "this is no picture"); }), 481);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("empty.gif", ""); }), 481);
}

TEST_F(WinPicturesTest, AChangedFileIsLoadedAgain) {
    EXPECT_EQ(LoadBytes("a.gif", gif6x7).width, 90);
    EXPECT_EQ(pictures.Load(folder / "a.gif").width, 90);
    EXPECT_EQ(LoadBytes("a.gif", png2x3).width, 30);
    files.Delete(folder / "a.gif");
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "a.gif"); }), 53);
}

TEST(WinLocaleTest, DatesAndTimesHaveTheUsersFormat) {
    WinLocale locale;
    SYSTEMTIME time{};
    time.wYear = 2004;
    time.wMonth = 5;
    time.wDay = 14;
    time.wHour = 9;
    time.wMinute = 30;
    wchar_t text[100]{};
    ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, 100);
    const base::DateTime value =
        base::Combine(base::DateTime::FromDate(2004, 5, 14), base::DateTime::FromTime(9, 30, 0));
    EXPECT_EQ(locale.ShortDate(value), Narrow(text));
    ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, 100);
    EXPECT_EQ(locale.TimeText(value), Narrow(text));
    ::GetDateFormatW(LOCALE_USER_DEFAULT, 0, &time, L"dddd", text, 100);
    EXPECT_EQ(locale.WeekdayName(value), Narrow(text));
    EXPECT_EQ(locale.GeneralDate(value), locale.ShortDate(value) + " " + locale.TimeText(value));
}

TEST(WinLocaleTest, YearsThatTheSystemCannotFormatHaveTheSameFormat) {
    WinLocale locale;
    const auto ofYear = [](int year) { return base::DateTime::FromDate(year, 5, 14); };
    // 1234 and 2034 have the same calendar and differ only in the century.
    std::string expected = locale.ShortDate(ofYear(2034));
    const std::size_t century = expected.find("2034");
    if (century != std::string::npos) {
        expected.replace(century, 4, "1234");
    }
    EXPECT_EQ(locale.ShortDate(ofYear(1234)), expected);
    EXPECT_EQ(locale.WeekdayName(ofYear(1234)), locale.WeekdayName(ofYear(2034)));
    EXPECT_FALSE(locale.ShortDate(ofYear(100)).empty());
    EXPECT_FALSE(locale.ShortDate(ofYear(9999)).empty());
    EXPECT_FALSE(locale.ShortDate(base::DateTime{}).empty());
    EXPECT_FALSE(locale.TimeText(ofYear(100)).empty());
}

TEST(WinLocaleTest, UpperCase) {
    WinLocale locale;
    EXPECT_EQ(locale.ToUpper(""), "");
    EXPECT_EQ(locale.ToUpper("Note 1 i"), "NOTE 1 I");
    EXPECT_EQ(locale.ToUpper("\xc3\xbc\xd0\xb6"), "\xc3\x9c\xd0\x96");
}

TEST(WinLocaleTest, AnsiTextsRoundTrip) {
    WinLocale locale;
    EXPECT_EQ(locale.ToAnsi(""), "");
    EXPECT_EQ(locale.FromAnsi(""), "");
    EXPECT_EQ(locale.ToAnsi("plain\r\n\ttext"), "plain\r\n\ttext");
    EXPECT_EQ(locale.FromAnsi("plain\r\n\ttext"), "plain\r\n\ttext");
    for (const char* text : {"\xc3\xa9", "\xce\xa9", "\xe6\x97\xa5", "\xd0\x96", "\xe2\x82\xac",
                             "\xf0\x9f\x93\x9d", "\xc2\xa5\x5c", "\xe2\x88\x9e"}) {
        const std::optional<std::string> bytes = locale.ToAnsi(text);
        EXPECT_TRUE(!bytes || locale.FromAnsi(*bytes) == text) << text;
    }
    EXPECT_FALSE(locale.ToAnsi("\xff not UTF-8").has_value());
}

TEST(WinLocaleTest, CharactersAreNotReplacedBySimilarOnes) {
    if (::GetACP() != 1252) {
        GTEST_SKIP() << "the code page is another";
    }
    WinLocale locale;
    EXPECT_EQ(locale.ToAnsi("\xc3\xa9\xe2\x82\xac"), "\xe9\x80");
    EXPECT_EQ(locale.FromAnsi("\xe9\x80"), "\xc3\xa9\xe2\x82\xac");
    EXPECT_FALSE(locale.ToAnsi("\xc4\x80").has_value());      // A with a bar, not A
    EXPECT_FALSE(locale.ToAnsi("\xe2\x88\x9e").has_value());  // infinity, not 8
    EXPECT_FALSE(locale.ToAnsi("\xe6\x97\xa5").has_value());
    std::string all;
    for (int code = 0; code < 256; ++code) {
        all += static_cast<char>(code);
    }
    EXPECT_EQ(locale.ToAnsi(locale.FromAnsi(all)), all);
}

TEST(WinSystemTest, TheApplicationFolderContainsTheProgram) {
    WinSystem system;
    wchar_t path[2000]{};
    ::GetModuleFileNameW(nullptr, path, 2000);
    const std::string folder = system.ApplicationFolder();
    EXPECT_FALSE(folder.ends_with('\\'));
    EXPECT_TRUE(Narrow(path).starts_with(folder + "\\"));
    EXPECT_EQ(Narrow(path).find('\\', folder.size() + 1), std::string::npos);
}

TEST(WinSystemTest, TheSecondCopyDetectsTheFirst) {
    const std::wstring name = L"Local\\Jotwright.Test." + std::to_wstring(::GetCurrentProcessId());
    {
        WinSystem first(name);
        WinSystem second(name);
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_TRUE(second.PreviousInstance());
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_TRUE(second.PreviousInstance());
    }
    WinSystem third(name);
    EXPECT_FALSE(third.PreviousInstance());
}

TEST(WinSystemTest, VersionIsMajorAndMinor) {
    WinSystem system;
    EXPECT_GE(system.Version() & 0xffU, 5U);
    EXPECT_LE(system.Version(), 0xffffU);
}

}  // namespace forms::win32
