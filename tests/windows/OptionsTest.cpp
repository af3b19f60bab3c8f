#include <windows.h>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinSystem.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Needs.h"
#include "tests/windows/Picture.h"
#include "tests/windows/RegistryValue.h"

namespace driver {

namespace {

constexpr const char* caption = "Note Options";
constexpr const char* loops =
    "Play Note Alarms Continuously.                   ( Alarms will play one time if unchecked )";
constexpr const char* hideDateTime = "Hide System Date And Time In Note Editor";
constexpr const char* startWithWindows =
    "Start Jotwright when Windows starts.    (Option Available For Windows XP only!)";
constexpr const char* onTop = "Show Jotwright Notes On Top Of All Windows";

constexpr COLORREF green = RGB(0, 192, 0);

int HeightOf(const Window& window) {
    const RECT place = window.Place();
    return place.bottom - place.top;
}

// Makes Wine report this version of Windows to the program while the object exists.
class ToldWindowsVersion : RegistryValue {
  public:
    explicit ToldWindowsVersion(const std::wstring& version) : RegistryValue(key, value, version) {}

    static void Forget() { ::RegDeleteKeyValueW(HKEY_CURRENT_USER, key, value); }

  private:
    static constexpr const wchar_t* key = L"Software\\Wine\\AppDefaults\\Jotwright.exe";
    static constexpr const wchar_t* value = L"Version";
};

}  // namespace

class OptionsTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        ToldWindowsVersion::Forget();  // a killed run may have left it
    }

    Window OpenOptions(const Window& main) const;
    // Clicks a check box or an option button.
    static void Click(const Window& options, const std::string& button);
    void Apply(const Window& options) const;
    static void ExpectSettings(const std::string& color, const std::string& fontSize,
                               const std::string& loopsValue, const std::string& hides,
                               const std::string& cuckoo, const std::string& service,
                               const std::string& topMost);
};

Window OptionsTest::OpenOptions(const Window& main) const {
    return OpenFromMenuBar(main, barNoteOptions, caption);
}

void OptionsTest::Click(const Window& options, const std::string& button) {
    const bool before = options.Button(button).IsChecked();
    options.Button(button).Click();
    WaitUntil("the choice is shown", [&] { return options.Button(button).IsChecked() != before; });
}

void OptionsTest::Apply(const Window& options) const {
    options.Button("A&pply").Click();
    program.WaitUntilGone(caption);
}

void OptionsTest::ExpectSettings(const std::string& color, const std::string& fontSize,
                                 const std::string& loopsValue, const std::string& hides,
                                 const std::string& cuckoo, const std::string& service,
                                 const std::string& topMost) {
    EXPECT_EQ(Setting("Options", "DefaultColor"), color);
    EXPECT_EQ(Setting("Options", "DefaultFontSize"), fontSize);
    EXPECT_EQ(Setting("Options", "NoteLoops"), loopsValue);
    EXPECT_EQ(Setting("Options", "ShowDateTime"), hides);
    EXPECT_EQ(Setting("Options", "StartCookoo"), cuckoo);
    EXPECT_EQ(Setting("Options", "IsService"), service);
    EXPECT_EQ(Setting("Options", "WindowOnTop"), topMost);
}

TEST_F(OptionsTest, ApplyWritesAllOptionsAndCancelNone) {
    const Window main = StartProgram();
    Window options = OpenOptions(main);
    EXPECT_TRUE(options.Button("White").IsChecked());
    EXPECT_TRUE(options.Button("10 point").IsChecked());
    Click(options, "Green");
    options.Button("&Cancel").Click();
    program.WaitUntilGone(caption);
    ExpectSettings("", "", "", "", "", "", "");

    options = OpenOptions(main);
    Click(options, "Yellow");
    Click(options, "14 point");
    Click(options, onTop);
    Apply(options);
    ExpectSettings("4", "2", "0", "0", "0", "0", "1");

    options = OpenOptions(main);
    EXPECT_TRUE(options.Button("Yellow").IsChecked());
    EXPECT_TRUE(options.Button("14 point").IsChecked());
    EXPECT_TRUE(options.Button(onTop).IsChecked());
    EXPECT_FALSE(options.Button(loops).IsChecked());
}

TEST_F(OptionsTest, TheNextNoteHasTheDefaultsAndNoDateAndTime) {
    const Window main = StartProgram();
    const Window before = MakeNote(main, "Before");
    EXPECT_EQ(HeightOf(before), 489);
    HideNote(before);
    ExpectNote("Before", "\"Before\",\"\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");

    tray::Click(main);
    WaitUntil("the main window is back", [&] { return main.IsVisible(); });
    const Window options = OpenOptions(main);
    Click(options, "Green");
    Click(options, "16 point");
    Click(options, hideDateTime);
    Apply(options);
    const Window editor = MakeNote(main, "Shopping");
    EXPECT_TRUE(ComesTrue([&] { return Picture(editor.Only("Edit")).Share(green) > 0.8; }));
    EXPECT_EQ(HeightOf(editor), 420);
    editor.Button("Show &System Date/Time").Click();
    WaitUntil("date and time are shown", [&] {
        return HeightOf(editor) == 489 && editor.FindChild("Button", "Hide &System Date/Time");
    });
    editor.Button("Hide &System Date/Time").Click();
    WaitUntil("date and time are hidden", [&] {
        return HeightOf(editor) == 420 && editor.FindChild("Button", "Show &System Date/Time");
    });
    HideNote(editor);
    ExpectNote("Shopping", "\"Shopping\",\"\",#2031-06-02#,#12:00:00#,3,16,\"0\",0,\"yes\"\r\n");
}

TEST_F(OptionsTest, AlarmsStayOnTopAndLoop) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    WriteNote("Rent", "\"Rent\",\"Pay\",#2031-06-02#,#09:02:00#,1,12,\"1\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    CloseAndWait(program.WaitFor("Dentist"));
    CloseAndWait(program.WaitFor("Rent"));
    Window options = OpenOptions(main);
    Click(options, onTop);
    Click(options, loops);
    Apply(options);

    LetAlarmCome("2031-06-02 09:00:58", "Dentist");
    const Window display = program.WaitFor("Dentist");
    EXPECT_TRUE(display.IsTopMost());
    EXPECT_FALSE(main.IsTopMost());
    const Box box(program, alarmBox);
    EXPECT_EQ(box.Text(), "      Turn Off Alarm?       ");
    box.Click("OK");

    options = OpenOptions(main);
    EXPECT_TRUE(options.Button(loops).IsChecked());
    Click(options, onTop);
    Apply(options);
    LetAlarmCome("2031-06-02 09:01:58", "Rent");
    EXPECT_FALSE(program.WaitFor("Rent").IsTopMost());
    EXPECT_TRUE(display.IsTopMost());
}

TEST_F(OptionsTest, OlderWindowsCannotStartTheProgram) {
    Need(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr,
         "a system that can pretend to be an older one");
    const ToldWindowsVersion windows2000(L"win2k");
    const Window options = OpenOptions(StartProgram());
    EXPECT_FALSE(options.Button(startWithWindows).IsEnabled());
    EXPECT_TRUE(options.Button(onTop).IsEnabled());
}

class OptionsStartupLinkTest : public OptionsTest {
  protected:
    void SetUp() override {
        OptionsTest::SetUp();
        // The folder and the user's own shortcut must not be touched on a machine that has them.
        Need(!IsInTestKit() || (!FolderExists(allUsers) && !FileExists(ownLink)),
             "a disk without the folder \"All Users\", and no shortcut of the user's own");
        isPrepared = true;
        RemoveLinks();
    }
    void TearDown() override {
        OptionsTest::TearDown();
        RemoveLinks();
    }
    void RemoveLinks() const {
        if (isPrepared) {
            RemoveFolder(allUsers);
            RemoveFolder(ownLink);
            RemoveFile(ownLink);
        }
    }
    // Expects the shipped shortcut, pointed to this folder if it was pointed elsewhere.
    void ExpectLink(const std::string& path) const {
        const std::string made = WholeFile(path).value_or("");
        const std::wstring here = forms::win32::Wide(folder);
        const std::string bytes(reinterpret_cast<const char*>(here.data()),
                                here.size() * sizeof(wchar_t));
        EXPECT_NE(made.find(bytes), std::string::npos) << path;
        if (WholeFile(shipped).value().find(bytes) != std::string::npos) {
            EXPECT_EQ(made, WholeFile(shipped));
        }
    }

    const std::string allUsers = "C:\\Documents and Settings\\All Users";
    const std::string startup = allUsers + "\\Start Menu\\Programs\\Startup";
    const std::string shipped = folder + "\\Shortcut To Jotwright.lnk";
    const std::string link = startup + "\\Shortcut To Jotwright.lnk";
    const std::string ownLink =
        forms::win32::WinSystem(L"Local\\Unused").StartupFolder() + "\\Shortcut To Jotwright.lnk";
    bool isPrepared = false;
};

TEST_F(OptionsStartupLinkTest, IsMadeOnceAndDeleted) {
    MakeFolder(startup);
    const Window main = StartProgram();
    Window options = OpenOptions(main);
    Click(options, startWithWindows);
    Apply(options);
    EXPECT_EQ(Setting("Options", "IsService"), "1");
    ExpectLink(link);
    EXPECT_FALSE(FileExists(ownLink));

    // An existing link is left unchanged.
    WriteWholeFile(link, "the user's own");
    options = OpenOptions(main);
    EXPECT_TRUE(options.Button(startWithWindows).IsChecked());
    Apply(options);
    EXPECT_EQ(WholeFile(link), "the user's own");

    options = OpenOptions(main);
    Click(options, startWithWindows);
    Apply(options);
    EXPECT_EQ(Setting("Options", "IsService"), "0");
    EXPECT_FALSE(FileExists(link));
}

TEST_F(OptionsStartupLinkTest, WithoutTheFolderOfAllUsersItIsMadeInTheUsersOwn) {
    const Window main = StartProgram();
    Window options = OpenOptions(main);
    Click(options, startWithWindows);
    Apply(options);
    ExpectLink(ownLink);
    EXPECT_FALSE(FileExists(link));

    options = OpenOptions(main);
    EXPECT_TRUE(options.Button(startWithWindows).IsChecked());
    Click(options, startWithWindows);
    Apply(options);
    EXPECT_FALSE(FileExists(ownLink));
}

TEST_F(OptionsStartupLinkTest, AFailureToMakeItIsReported) {
    MakeFolder(ownLink);  // so that the link cannot be made there
    const Window options = OpenOptions(StartProgram());
    Click(options, startWithWindows);
    Click(options, "Blue");
    options.Button("A&pply").Click();
    const Box box(program, "Startup Link Error");
    EXPECT_EQ(box.Text(), "Unable to create startup link.       ");
    box.Click("OK");
    EXPECT_TRUE(options.IsVisible());
    ExpectSettings("3", "0", "0", "0", "0", "1", "0");
    EXPECT_FALSE(FileExists(link));
}

}  // namespace driver
