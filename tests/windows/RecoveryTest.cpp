#include <windows.h>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"
#include "tests/windows/RegistryValue.h"

namespace driver {

namespace {

using forms::win32::Wide;

constexpr COLORREF yellow = RGB(255, 255, 0);

// The name under which the registry lists the disk that holds this folder.
std::wstring DiskOf(const std::string& folder) {
    wchar_t root[MAX_PATH]{};
    wchar_t volume[MAX_PATH]{};
    if (::GetVolumePathNameW(Wide(folder).c_str(), root, MAX_PATH) == 0 ||
        ::GetVolumeNameForVolumeMountPointW(root, volume, MAX_PATH) == 0) {
        throw Failure("the disk of " + folder + " has no name");
    }
    const std::wstring name = volume;
    return name.substr(name.find(L'{'), name.find(L'}') + 1 - name.find(L'{'));
}

// Switches the Recycle Bin off for the disk of a folder while the object exists, as a user can.
class NoRecycleBin : RegistryValue {
  public:
    explicit NoRecycleBin(const std::string& folder)
        : RegistryValue(
              L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\BitBucket\\Volume\\" +
                  DiskOf(folder),
              L"NukeOnDelete", 1) {}
};

}  // namespace

class RecoveryTest : public DriverTest {
  protected:
    static std::string Shopping(const std::string& title, const std::string& text) {
        return '"' + title + "\",\"" + text + "\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    }
    // Sets an alarm for 9:31, with a sound.
    static void SetAlarm(const Window& editor);
    // Waits for the editor of a note that was unsaved when the program was killed.
    Window WaitForUnsaved(const std::string& title) const;
    std::vector<std::string> Files() const { return FileNames(folder + "\\Notes"); }
};

void RecoveryTest::SetAlarm(const Window& editor) {
    PickTime(TimePicker(editor), 9, 31);
    editor.Button(audioBoxCaption).Click();
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
}

Window RecoveryTest::WaitForUnsaved(const std::string& title) const {
    const Window editor = program.WaitFor(title);
    WaitUntilFilled(editor, "Edit");
    return editor;
}

TEST_F(RecoveryTest, ATextWhoseFileHasChangedComesUpBesideIt) {
    WriteNote("Shopping", Shopping("Shopping", "milk"));
    StartProgram();
    OpenRestored("Shopping").Only("Edit").Type("milk and eggs");
    WaitForCopy("Shopping", "milk and eggs");
    program.Kill();
    WriteNote("Shopping", Shopping("Shopping", "bread"));

    StartProgram();
    EXPECT_EQ(WaitForUnsaved("Shopping (recovered)").Only("Edit").Text(), "milk and eggs");
    EXPECT_TRUE(program.WaitFor("Shopping").IsMinimized());
    EXPECT_EQ(OpenRestored("Shopping").Only("Edit").Text(), "bread");
    ExpectNote("Shopping", Shopping("Shopping", "bread"));
    EXPECT_FALSE(FileExists(NotePath("Shopping (recovered)")));
    ExitProgram();
    ExpectNote("Shopping", Shopping("Shopping", "bread"));
    ExpectNote("Shopping (recovered)", Shopping("Shopping (recovered)", "milk and eggs"));
    EXPECT_EQ(Files(), (std::vector<std::string>{"Shopping (recovered).txt", "Shopping.txt"}));
}

TEST_F(RecoveryTest, UnsavedAlarmColorAndFontSizeComeBack) {
    const std::string saved = Shopping("Dentist", "Call");
    WriteNote("Dentist", saved);
    const Window main = StartProgram();
    const Window dentist = OpenRestored("Dentist");
    ChooseFromPopup(program, dentist.Only("Edit"), popupYellow);
    ChooseFromPopup(program, dentist.Only("Edit"), popup14Points);
    SetAlarm(dentist);
    // A note that was never saved.
    const Window rent = MakeNote(main, "Rent");
    rent.Only("Edit").Type("Pay");
    PickDate(DatePicker(rent), 2031, 6, 5);
    SetAlarm(rent);
    WaitForCopy("Dentist", "\"Call\",#2031-06-02#,#09:31:00#,5,14,\"1\",1,\"yes\"");
    WaitForCopy("Rent", "\"Pay\",#2031-06-05#,#09:31:00#,1,12,\"1\",1,\"yes\"");
    program.Kill();
    ExpectNote("Dentist", saved);
    EXPECT_FALSE(FileExists(NotePath("Rent")));

    StartProgram();
    const Window again = WaitForUnsaved("Dentist");
    EXPECT_EQ(again.Only("Edit").Text(), "Call");
    BringUp(again);
    EXPECT_TRUE(ComesTrue([&] { return Picture(again.Only("Edit")).Share(yellow) > 0.8; }));
    EXPECT_TRUE(again.FindChild("Button", editorTurnOff));
    EXPECT_TRUE(again.FindChild("Static", "9:31:00 AM"));
    EXPECT_TRUE(again.Button(audioBoxCaption).IsChecked());
    const Window unsaved = WaitForUnsaved("Rent");
    EXPECT_EQ(unsaved.Only("Edit").Text(), "Pay");
    EXPECT_TRUE(unsaved.FindChild("Button", editorTurnOff));
    EXPECT_TRUE(unsaved.FindChild("Static", "5, 2031"));
    ExpectNote("Dentist", saved);

    const std::uint64_t before = recorder.Now();
    LetAlarmCome("2031-06-02 09:30:58", alarmBox);
    EXPECT_EQ(recorder.WaitForSound(before), "Alarm buzzer.wav");
    Box(program, alarmBox).Click("OK");
    HideNote(again);
    ExpectNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:31:00#,5,14,\"0\",0,\"yes\"\r\n");
    EXPECT_TRUE(unsaved.FindChild("Button", editorTurnOff));
    ExitProgram();
    ExpectNote("Rent", "\"Rent\",\"Pay\",#2031-06-05#,#09:31:00#,1,12,\"1\",1,\"yes\"\r\n");
    EXPECT_EQ(Files(), (std::vector<std::string>{"Dentist.txt", "Rent.txt"}));
}

TEST_F(RecoveryTest, WithoutARecycleBinFilesAreRenamed) {
    const NoRecycleBin noBin(folder);
    WriteNote("Bad", "\"Bad\",\"no");
    WriteNote("Shopping", Shopping("Shopping", "milk"));
    StartProgram();
    const Window editor = OpenRestored("Shopping");
    EXPECT_FALSE(FileExists(NotePath("Bad")));
    EXPECT_EQ(WholeFile(NotePath("Bad") + ".damaged"), "\"Bad\",\"no");

    // Act as another program that saves the note.
    WriteNote("Shopping", Shopping("Shopping", "bread"));
    editor.Only("Edit").Type("milk and eggs");
    ClickToolbar(editor.Only(toolbarClass), toolbarSave);
    Box(program, "").Click("OK");
    ExpectNote("Shopping", Shopping("Shopping", "milk and eggs"));
    EXPECT_EQ(WholeFile(NotePath("Shopping") + ".replaced"), Shopping("Shopping", "bread"));
    ExitProgram();
    EXPECT_EQ(Files(), (std::vector<std::string>{"Bad.txt.damaged", "Shopping.txt",
                                                 "Shopping.txt.replaced"}));
}

}  // namespace driver
