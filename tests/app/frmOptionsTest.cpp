#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "app/StandardCode.h"
#include "app/frmOptions.h"
#include "base/RuntimeError.h"
#include "tests/support/TestProgram.h"

namespace {

using forms::BoxIcon;

const std::string startupFolder =
    "C:\\Documents and Settings\\All Users\\Start Menu\\Programs\\Startup";
const std::string startupLink = startupFolder + "\\Shortcut To Jotwright.lnk";
const std::string ownFolder =
    "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup";
const std::string ownLink = ownFolder + "\\Shortcut To Jotwright.lnk";
const std::string shippedLink = "C:\\Jotwright\\Shortcut To Jotwright.lnk";

// A store in which one write fails. Writes are counted from 1.
class FailingSettings : public forms::headless::HeadlessSettings {
  public:
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override {
        if (++writes == failingWrite) {
            throw base::RuntimeError(base::ErrorNumber::DeviceIoError);
        }
        HeadlessSettings::Write(section, key, value);
    }
    int writes = 0;
    int failingWrite = 0;
};

class frmOptionsTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        files.PutFolder(startupFolder);
        files.PutFile(shippedLink, "link");
    }

    void Open() {
        Start([] { forms::Default<frmOptions>().Show(); });
    }
    void Set(const std::string& key, const std::string& value) {
        settings.values[{"Options", key}] = value;
    }
    std::string Get(const std::string& key) { return settings.values.at({"Options", key}); }
    static bool IsOpen() { return forms::LoadedDefault<frmOptions>() != nullptr; }
    static frmOptions& Window() { return forms::Default<frmOptions>(); }

    static int SelectedColor() { return Selected(Window().optDefaultColor); }
    static int SelectedFont() { return Selected(Window().optDefaultFont); }

    void ExpectLinkError() {
        ExpectMessage("Unable to create startup link.       ", "Startup Link Error",
                      BoxIcon::Exclamation);
    }

  private:
    template <class Buttons>
    static int Selected(const Buttons& buttons) {
        for (const auto& button : buttons) {
            if (button.value) {
                return button.index;
            }
        }
        return -1;
    }
};

TEST_F(frmOptionsTest, ANewUserGetsTheDefaults) {
    StandardCode::Shared().StartCookooFlag = 1;
    Open();
    EXPECT_EQ(SelectedColor(), 0);
    EXPECT_EQ(SelectedFont(), 0);
    for (const forms::CheckBox* box :
         {&Window().chkNoteLoops, &Window().chkShowDateTime, &Window().chkCooKooOn,
          &Window().chkIsService, &Window().chkShowOnTop}) {
        EXPECT_EQ(box->value(), 0) << box->name;
    }
    EXPECT_EQ(StandardCode::Shared().StartCookooFlag, 0);
    EXPECT_TRUE(settings.values.empty());
}

TEST_F(frmOptionsTest, LoadShowsTheStoredValues) {
    Set("DefaultColor", "4");
    Set("DefaultFontSize", "3");
    Set("WindowOnTop", "1");
    Set("StartCookoo", "1");
    Set("ShowDateTime", "1");
    Set("NoteLoops", "1");
    Set("IsService", "1");
    Open();
    EXPECT_EQ(SelectedColor(), 4);
    EXPECT_EQ(SelectedFont(), 3);
    EXPECT_EQ(Window().chkShowOnTop.value(), 1);
    EXPECT_EQ(Window().chkCooKooOn.value(), 1);
    EXPECT_EQ(Window().chkShowDateTime.value(), 1);
    EXPECT_EQ(Window().chkNoteLoops.value(), 1);
    EXPECT_EQ(Window().chkIsService.value(), 1);
    EXPECT_EQ(StandardCode::Shared().StartCookooFlag, 1);
}

TEST_F(frmOptionsTest, AnyNoteLoopsButZeroChecksTheBox) {
    Set("NoteLoops", "7");
    Open();
    EXPECT_EQ(Window().chkNoteLoops.value(), 1);
}

TEST_F(frmOptionsTest, WithoutIsServiceTheBoxTakesTheColorCode) {
    Set("DefaultColor", "1");
    Open();
    EXPECT_EQ(Window().chkIsService.value(), 1);
    // The handler of the check box has run, so applying creates the link.
    user->Click(Window().cmdApply);
    EXPECT_TRUE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, WithoutIsServiceAColorCodeThatIsNoCheckMarkLeavesTheBoxEmpty) {
    Set("DefaultColor", "4");
    Open();
    EXPECT_EQ(Window().chkIsService.value(), 0);
}

TEST_F(frmOptionsTest, NumbersThatAreNoCheckMarksLeaveTheBoxesEmpty) {
    for (const char* key : {"WindowOnTop", "StartCookoo", "ShowDateTime", "IsService"}) {
        Set(key, "5");
    }
    Set("WindowOnTop", "-1");
    Open();
    EXPECT_EQ(Window().chkShowOnTop.value(), 0);
    EXPECT_EQ(Window().chkCooKooOn.value(), 0);
    EXPECT_EQ(Window().chkShowDateTime.value(), 0);
    EXPECT_EQ(Window().chkIsService.value(), 0);
}

TEST_F(frmOptionsTest, ATextThatIsNoNumberIsNotTrapped) {
    Set("WindowOnTop", "yes");
    ExpectRunTimeError(13, "Type mismatch");
    Open();
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmOptionsTest, ACodeOutOfRangeSelectsNoButtonAndStays) {
    Set("DefaultColor", "9");
    Set("DefaultFontSize", "-1");
    Set("IsService", "0");
    Open();
    EXPECT_EQ(SelectedColor(), -1);
    EXPECT_EQ(SelectedFont(), -1);
    user->Click(Window().optDefaultFont[1]);
    user->Click(Window().cmdApply);
    EXPECT_EQ(Get("DefaultColor"), "9");
    EXPECT_EQ(Get("DefaultFontSize"), "1");
}

TEST_F(frmOptionsTest, WindowsVersionTexts) {
    Open();
    const std::pair<std::uint32_t, const char*> versions[] = {
        {0x0105, "5.01"}, {0x0005, "5.00"}, {0x000A, "10.00"},   {0x0106, "6.01"},
        {0x5A04, "4.90"}, {0xC805, "7.00"}, {0x1DB10105, "5.01"}};
    for (const auto& [version, text] : versions) {
        system.version = version;
        EXPECT_EQ(Window().GetWinVersion(), text);
    }
}

TEST_F(frmOptionsTest, OnlyVersionsAboveFiveCanStartWithWindows) {
    for (const auto& [version, available] :
         std::map<std::uint32_t, bool>{{0x0005, false}, {0x5A04, false}, {0x0105, true}}) {
        system.version = version;
        Open();
        EXPECT_EQ(Window().chkIsService.enabled(), available) << version;
        user->Click(Window().cmdCancel);
    }
}

TEST_F(frmOptionsTest, ApplyWritesAllSevenKeysEvenWhenNothingChanged) {
    Open();
    user->Click(Window().cmdApply);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(settings.values.size(), 7U);
    for (const char* key : {"DefaultColor", "DefaultFontSize", "WindowOnTop", "StartCookoo",
                            "NoteLoops", "IsService", "ShowDateTime"}) {
        EXPECT_EQ(Get(key), "0") << key;
    }
}

TEST_F(frmOptionsTest, ApplyWritesTheChosenValues) {
    Open();
    user->Click(Window().optDefaultColor[5]);
    user->Click(Window().optDefaultFont[2]);
    user->Click(Window().chkShowOnTop);
    user->Click(Window().chkNoteLoops);
    user->Click(Window().cmdApply);
    EXPECT_EQ(Get("DefaultColor"), "5");
    EXPECT_EQ(Get("DefaultFontSize"), "2");
    EXPECT_EQ(Get("WindowOnTop"), "1");
    EXPECT_EQ(Get("NoteLoops"), "1");
    EXPECT_EQ(Get("StartCookoo"), "0");
    EXPECT_EQ(Get("ShowDateTime"), "0");
    EXPECT_EQ(Get("IsService"), "0");
}

TEST_F(frmOptionsTest, EachBoxHasItsOwnKey) {
    const std::pair<forms::CheckBox frmOptions::*, const char*> boxes[] = {
        {&frmOptions::chkNoteLoops, "NoteLoops"},
        {&frmOptions::chkShowDateTime, "ShowDateTime"},
        {&frmOptions::chkCooKooOn, "StartCookoo"},
        {&frmOptions::chkIsService, "IsService"},
        {&frmOptions::chkShowOnTop, "WindowOnTop"}};
    for (const auto& [box, key] : boxes) {
        settings.values.clear();
        Open();
        user->Click(Window().*box);
        user->Click(Window().cmdApply);
        for (const auto& [name, value] : settings.values) {
            EXPECT_EQ(value, name.second == key ? "1" : "0") << name.second << " with " << key;
        }
    }
}

TEST_F(frmOptionsTest, CancelAndTheCloseBoxWriteNothing) {
    Open();
    user->Click(Window().chkShowOnTop);
    user->Click(Window().optDefaultColor[3]);
    user->Click(Window().cmdCancel);
    EXPECT_FALSE(IsOpen());
    Open();
    user->Click(Window().chkIsService);
    user->CloseBox(Window());
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(settings.values.empty());
    EXPECT_FALSE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, CheckingStartWithWindowsMakesTheLinkOnce) {
    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_EQ(files.Peek(startupLink), "link");
    EXPECT_EQ(files.Names(startupFolder), std::vector<std::string>{"Shortcut To Jotwright.lnk"});

    files.PutFile(startupLink, "older");
    Open();
    EXPECT_EQ(Window().chkIsService.value(), 1);
    user->Click(Window().cmdApply);
    EXPECT_EQ(files.Peek(startupLink), "older");
}

TEST_F(frmOptionsTest, UncheckingStartWithWindowsDeletesTheLink) {
    Set("IsService", "1");
    files.PutFile(startupLink, "link");
    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(files.FileExists(startupLink));
    EXPECT_EQ(Get("IsService"), "0");
}

TEST_F(frmOptionsTest, CheckingAndUncheckingMakesNoLink) {
    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, AGrayedStartWithWindowsMakesNoLink) {
    Set("IsService", "2");
    Open();
    EXPECT_EQ(Window().chkIsService.value(), 2);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, AMissingShippedLinkIsReportedAfterTheSettingsAreWritten) {
    files.Remove(shippedLink);
    Open();
    user->Click(Window().chkIsService);
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Get("IsService"), "1");
    EXPECT_EQ(settings.values.size(), 7U);
}

TEST_F(frmOptionsTest, TheLinkStartsTheProgramFromItsRealPlace) {
    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_EQ(shell.pointed, std::vector<std::string>{startupLink});
}

TEST_F(frmOptionsTest, IfTheSystemRefusesTheLinkIsMadeInTheUsersOwnFolder) {
    files.PutFolder(ownFolder);
    files.SetReadOnly(startupFolder, true);
    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(files.FileExists(startupLink));
    EXPECT_EQ(files.Peek(ownLink), "link");
    EXPECT_EQ(shell.pointed, std::vector<std::string>{ownLink});

    // If the link exists at the next Apply, the program does not copy it again, but points it to
    // its own folder.
    files.PutFile(ownLink, "older");
    files.SetReadOnly(startupFolder, false);
    Open();
    EXPECT_EQ(Window().chkIsService.value(), 1);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(files.Peek(ownLink), "older");
    EXPECT_FALSE(files.FileExists(startupLink));
    EXPECT_EQ(shell.pointed, (std::vector<std::string>{ownLink, ownLink}));

    Open();
    user->Click(Window().chkIsService);
    user->Click(Window().cmdApply);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(files.FileExists(ownLink));
}

TEST_F(frmOptionsTest, BothLinksAreDeleted) {
    files.PutFile(ownLink, "link");
    files.PutFile(startupLink, "link");
    Open();
    user->Click(Window().cmdApply);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(files.FileExists(ownLink));
    EXPECT_FALSE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, AnOwnLinkThatCannotBeDeletedIsReported) {
    files.PutFile(ownLink, "link");
    files.SetDenied(ownLink, true);
    Open();
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmOptionsTest, IfBothFoldersRefuseTheLinkThatIsReported) {
    files.PutFolder(ownFolder);
    files.SetReadOnly(ownFolder, true);
    files.SetReadOnly(startupFolder, true);
    Open();
    user->Click(Window().chkIsService);
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(shell.pointed.empty());
}

TEST_F(frmOptionsTest, WithoutAnOwnFolderTheRefusalIsReported) {
    system.startupFolder.clear();
    files.Remove(startupFolder);
    Open();
    user->Click(Window().chkIsService);
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmOptionsTest, ALinkThatCannotBeDeletedIsReported) {
    files.PutFile(startupLink, "link");
    files.SetDenied(startupLink, true);
    Open();
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(files.FileExists(startupLink));
}

TEST_F(frmOptionsTest, IfASettingCannotBeWrittenThoseBeforeItStayWritten) {
    FailingSettings failing;
    failing.failingWrite = 3;
    forms::Machine().settings = &failing;
    Open();
    ExpectLinkError();
    user->Click(Window().cmdApply);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(failing.values.size(), 2U);
    EXPECT_EQ(failing.values.count({"Options", "DefaultColor"}), 1U);
    EXPECT_EQ(failing.values.count({"Options", "DefaultFontSize"}), 1U);
    user->Click(Window().cmdCancel);
}

}  // namespace
