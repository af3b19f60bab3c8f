#include <algorithm>
#include <map>

#include "alarms/NoteAlarmsCheck.h"
#include "base/Text.h"
#include "forms/Gestures.h"
#include "forms/Services.h"
#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "notes/frmDisplayNote.h"
#include "tests/support/NoteProgram.h"

// A note is its file: whatever its title, and whatever other programs do to the folder.

namespace {

using base::DateTime;
using forms::BoxResult;
using StandardCode::Shared;
using Names = std::vector<std::string>;

const std::string folder = "C:\\Jotwright\\Notes";

class NoteStoreTest : public testing_support::NoteProgram {
  protected:
    void PutAs(const std::string& file, const StandardCode::NoteRecord& record) {
        files.PutFolder(folder);
        files.PutFile(folder + '\\' + file, NoteFile::Encode(record));
    }

    StandardCode::NoteRecord In(const std::string& file) {
        StandardCode::NoteRecord record;
        NoteFile::Decode(files.Peek(folder + '\\' + file).value_or(""), record);
        return record;
    }

    // The editor of the note in this file.
    frmNote& EditorOf(const std::string& file) {
        const EditedNote* note = StandardCode::Notes().FindOpen(file);
        if (note == nullptr) {
            ADD_FAILURE() << file << " is not open";
            return forms::Default<frmNote>();
        }
        return static_cast<frmNote&>(note->Editor().Window());
    }

    void TypeInto(frmNote& note, const std::string& text) {
        if (note.windowState() == forms::WindowState::Minimized) {
            user->Restore(note);
        }
        user->Type(note.txtNote, text);
    }

    Names InFolder() const { return files.Names(folder); }

    void ReadAll() {
        Start([] { StandardCode::LoadNotesArray(); });
        Start(StandardCode::ReadNotes);
    }

    void CloseAll() {
        while (!StandardCode::Notes().OpenNotes().empty()) {
            user->CloseBox(static_cast<frmNote&>(
                StandardCode::Notes().OpenNotes().front()->Editor().Window()));
        }
    }

    // The bytes of the whole folder.
    std::map<std::string, std::string> Folder() const {
        std::map<std::string, std::string> all;
        for (const std::string& name : files.Names(folder)) {
            all[name] = files.Peek(folder + '\\' + name).value_or("");
        }
        return all;
    }
};

TEST_F(NoteStoreTest, TwoFilesOfOneTitleAreTwoNotes) {
    PutAs("Dentist.txt", Record("Dentist", "new"));
    PutAs("Dentist_old.txt", Record("Dentist", "old"));
    ReadAll();
    ASSERT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
    TypeInto(EditorOf("Dentist.txt"), "newest");
    user->CloseBox(EditorOf("Dentist.txt"));
    CloseAll();
    EXPECT_EQ(In("Dentist.txt").Text, "newest");
    EXPECT_EQ(In("Dentist_old.txt").Text, "old");
    EXPECT_EQ(InFolder(), (Names{"Dentist.txt", "Dentist_old.txt"}));
}

TEST_F(NoteStoreTest, AFileWhoseNameDiffersFromItsTitleIsRewrittenInPlace) {
    PutAs("x.txt", Record("Real title", "old"));
    ReadAll();
    TypeInto(EditorOf("x.txt"), "new");
    CloseAll();
    EXPECT_EQ(In("x.txt").Text, "new");
    EXPECT_EQ(In("x.txt").Title, "Real title");
    EXPECT_EQ(InFolder(), Names{"x.txt"});
}

TEST_F(NoteStoreTest, EachOfTwoNotesOfOneTitleIsErasedAndOpenedByItself) {
    PutAs("Dentist.txt", Record("Dentist", "new"));
    PutAs("Dentist_old.txt", Record("Dentist", "old"));
    Start([] { StandardCode::LoadNotesArray(); });
    Start([] { StandardCode::OpenNote(2); });
    EXPECT_EQ(EditorOf("Dentist_old.txt").txtNote.text(), "old");
    Start([] { StandardCode::OpenNote(1); });
    EXPECT_EQ(EditorOf("Dentist.txt").txtNote.text(), "new");
    Start([] { StandardCode::OpenNote(2); });
    EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
    ExpectEraseQuestion("DENTIST", BoxResult::Yes);
    user->Click(EditorOf("Dentist_old.txt").tlbMain, "Erase");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(NoteStoreTest, ABlankAtTheEndOfATitleMakesAnotherNote) {
    PutAs("Dentist.txt", Record("Dentist", "one"));
    auto other = Record("Dentist ", "two");
    other.AlarmState = "1";
    PutAs("Dentist .txt", other);
    Start([] { StandardCode::LoadNotesArray(); });
    ASSERT_EQ(Shared().NotesArray[1].Title, "Dentist ");
    for (const BoxResult answer : {BoxResult::No, BoxResult::Yes}) {
        Start([] { StandardCode::DisplayNote(1); });
        stage->ExpectBox("Would you like to erase this note?", " Erase Note?",
                         forms::BoxIcon::Question, forms::BoxButtons::YesNo, answer);
        for (const auto& form : std::vector(runtime->LoadedForms())) {
            if (auto* display = dynamic_cast<frmDisplayNote*>(form.get())) {
                user->CloseBox(*display);
            }
        }
        EXPECT_EQ(In("Dentist.txt").Text, "one");
    }
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
    EXPECT_EQ(files.RecycleBin(), Names{folder + "\\Dentist .txt"});
}

TEST_F(NoteStoreTest, StartAndExitWithNothingTouchedChangeNoByte) {
    PutAs("a.txt", Record("a", "plain"));
    PutAs("b.txt", Record("b", "5\" pipe, \"quoted\", and \"\r\n\""));
    PutAs("c.txt", Record("c", "umlaut \xc3\xa4 snowman \xe2\x98\x83"));
    files.PutFile(folder + "\\d.txt",
                  NoteFile::Encode(Record("d", "fired"), NoteFile::TimeField::RewrittenText));
    files.PutFile(
        folder + "\\e.txt",
        "\"e\",\"lone\nbreak \x81 \xe4\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    auto gray = Record("g", "gray, of 11 points");
    gray.ColorIndex = 6;
    gray.FontSize = 11;
    PutAs("g.txt", gray);
    files.PutFile(folder + "\\f.txt",
                  "\"f\",\"spaced\" , #2004-05-14#, #12:00:00#, 1, 12, \"0\", 0, \"yes\"");
    const auto before = Folder();
    ReadAll();
    ASSERT_EQ(StandardCode::Notes().OpenNotes().size(), 7U);
    Advance(5000);
    EXPECT_EQ(Folder(), before);
    files.ClearLog();
    {
        const NoteStore::Quiet exit(StandardCode::Notes());
        CloseAll();
    }
    EXPECT_EQ(Folder(), before);
    for (const std::string& entry : files.Log()) {
        EXPECT_TRUE(entry.starts_with("read ")) << entry;
    }
}

TEST_F(NoteStoreTest, AnAlarmThatRangIsOffInTheFileOnceTheWindowCloses) {
    auto record = Record("Dentist", "text");
    record.AlarmState = "1";
    record.AlarmTime = DateTime::FromTime(9, 0, 5);
    PutNote(record);
    ReadAll();
    Advance(10'000);
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").AlarmState, "0");
}

TEST_F(NoteStoreTest, AnAlarmThatRangLeavesAFileThatWasChangedElsewhere) {
    const std::map<std::string, std::function<void()>> ends{
        {"closing", [this] { user->CloseBox(Editor("Dentist")); }},
        {"exit",
         [this] {
             const NoteStore::Quiet exit(StandardCode::Notes());
             CloseAll();
         }},
        {"end of the session", [] { forms::gestures::EndSession(); }},
    };
    for (const auto& [how, end] : ends) {
        SCOPED_TRACE(how);
        SetNow(2004, 5, 14, 9, 0, 0);
        auto record = Record("Dentist", "text");
        record.AlarmState = "1";
        record.AlarmTime = DateTime::FromTime(9, 0, 5);
        PutNote(record);
        ReadAll();
        Advance(10'000);
        ASSERT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
        record.Text = "by another program";
        record.AlarmTime = DateTime::FromTime(17, 0, 0);
        PutNote(record);
        const auto bytes = FileOf("Dentist");
        end();
        EXPECT_TRUE(StandardCode::Notes().OpenNotes().empty());
        EXPECT_EQ(FileOf("Dentist"), bytes);
        RestartProgram();
    }
}

TEST_F(NoteStoreTest, AnAlarmThatRangIsOffInTheFileAfterExitAndEndOfSession) {
    for (const bool isExit : {true, false}) {
        SetNow(2004, 5, 14, 9, 0, 0);
        auto record = Record("Dentist", "text");
        record.AlarmState = "1";
        record.AlarmTime = DateTime::FromTime(9, 0, 5);
        PutNote(record);
        ReadAll();
        Advance(10'000);
        if (isExit) {
            const NoteStore::Quiet exit(StandardCode::Notes());
            CloseAll();
        } else {
            forms::gestures::EndSession();
        }
        EXPECT_EQ(Saved("Dentist").AlarmState, "0") << isExit;
        RestartProgram();
    }
}

// The system's code page is UTF-8, and that of its language 1252.
class Utf8Locale : public forms::headless::HeadlessLocale {
  public:
    std::optional<std::string> ToAnsi(const std::string& utf8) override {
        const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return c >= 0; });
        return isAscii ? std::optional(utf8) : std::nullopt;
    }
    std::string FromAnsi(const std::string& bytes) override {
        return base::ToValidUtf8(bytes) == bytes ? bytes : HeadlessLocale::FromAnsi(bytes);
    }
};

TEST_F(NoteStoreTest, UnderUtf8NoByteChangesEither) {
    Utf8Locale utf8;
    forms::Machine().locale = &utf8;
    files.PutFolder(folder);
    const std::string tail = "\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    files.PutFile(folder + "\\ansi.txt", "\"ansi\",\"gr\xfc\xdf" + tail);
    files.PutFile(folder + "\\utf8.txt", "\"utf8\",\"gr\xc3\xbc\xc3\x9f" + tail);
    files.PutFile(folder + "\\mark.txt", "\xef\xbb\xbf\"mark\",\"gr\xc3\xbc\xc3\x9f" + tail);
    const auto before = Folder();
    ReadAll();
    for (const char* file : {"ansi.txt", "utf8.txt", "mark.txt"}) {
        EXPECT_EQ(EditorOf(file).txtNote.text(), "gr\xc3\xbc\xc3\x9f") << file;
    }
    TypeInto(MakeNote("New"), "\xc3\xbc");
    CloseAll();
    auto after = Folder();
    EXPECT_TRUE(after.at("New.txt").starts_with("\xef\xbb\xbf\"New\",\"\xc3\xbc"));
    after.erase("New.txt");
    EXPECT_EQ(after, before);
    forms::Machine().locale = &locale;
}

TEST_F(NoteStoreTest, AnotherNotesFileGoesToTheRecycleBinBeforeANewNoteTakesIt) {
    PutAs("Shopping.txt", Record("Shopping", "milk"));
    ReadAll();
    frmNote& other = MakeNote("shopping", "bread");
    user->CloseBox(other);
    EXPECT_EQ(In("Shopping.txt").Text, "bread");
    ASSERT_EQ(files.RecycleBin(), Names{folder + "\\Shopping.txt"});
    EXPECT_EQ(files.RecycledBytes()[0], NoteFile::Encode(Record("Shopping", "milk")));
    // The open editor of that file knows that its text is unsaved.
    Advance(3000);
    EXPECT_EQ(InFolder().size(), 2U);
    // Nobody has touched it, so it does not write its text over the newer one.
    user->CloseBox(Editor("Shopping"));
    EXPECT_EQ(In("Shopping.txt").Text, "bread");
    ASSERT_EQ(files.RecycledBytes().size(), 2U);
    EXPECT_NE(files.RecycledBytes()[1].find("milk"), std::string::npos);
}

TEST_F(NoteStoreTest, WithoutARecycleBinTheOldFileIsKeptUnderAnotherName) {
    files.SetRecycleBin(false);
    PutAs("Shopping.txt", Record("Shopping", "milk"));
    for (const char* text : {"bread", "butter"}) {
        user->CloseBox(MakeNote("shopping", text));
    }
    EXPECT_EQ(InFolder(),
              (Names{"Shopping.txt", "Shopping.txt (2).replaced", "Shopping.txt.replaced"}));
    EXPECT_EQ(In("Shopping.txt").Text, "butter");
    EXPECT_EQ(In("Shopping.txt.replaced").Text, "milk");
    EXPECT_EQ(In("Shopping.txt (2).replaced").Text, "bread");
}

TEST_F(NoteStoreTest, OfTwoNewNotesOfOneTitleBothTextsAreKept) {
    frmNote& first = MakeNote("Same", "one");
    Start([] { StandardCode::CreateNote("Same"); });
    auto& second = static_cast<frmNote&>(*runtime->LoadedForms().back());
    user->Type(second.txtNote, "two");
    user->CloseBox(first);
    user->CloseBox(second);
    EXPECT_EQ(In("Same.txt").Text, "two");
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("one"), std::string::npos);
}

TEST_F(NoteStoreTest, AKillBetweenTheRecycleBinAndTheNewFileLosesNeither) {
    PutAs("Shopping.txt", Record("Shopping", "milk"));
    for (int step = 1; step <= 12; ++step) {
        files.PutFile(folder + "\\Shopping.txt", NoteFile::Encode(Record("Shopping", "milk")));
        frmNote& other = MakeNote("shopping", "bread");
        files.KillAt(step, forms::headless::MemoryFiles::Moment::After);
        bool isKilled = false;
        try {
            user->Click(other.tlbMain, "Hide");
        } catch (const forms::headless::Killed&) {
            isKilled = true;
        }
        RestartProgram();
        Start([] { NoteStore::AdoptLeftovers(); });
        const std::string text = In("Shopping.txt").Text;
        EXPECT_TRUE(text == "milk" || text == "bread") << step << ": " << text;
        EXPECT_TRUE(isKilled || text == "bread") << step;
        for (const std::string& name : InFolder()) {
            if (name.ends_with(".recovery")) {
                files.Remove(folder + '\\' + name);
            }
        }
    }
}

TEST_F(NoteStoreTest, ATitleOfAFileBeyondADamagedOneIsTaken) {
    files.PutFolder(folder);
    files.PutFile(folder + "\\abad.txt",
                  "\"abad\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    PutAs("Zebra.txt", Record("Zebra", "stripes"));
    stage->ExpectBox("Error Number: 13) - Type mismatch", "Error Loading Notes Array",
                     forms::BoxIcon::None, forms::BoxButtons::Ok, BoxResult::Ok);
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_TRUE(StandardCode::Notes().IsTaken("Zebra"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("zebra"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("Zebra "));
    EXPECT_TRUE(StandardCode::Notes().IsTaken("abad"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("What?"));
}

TEST_F(NoteStoreTest, TheLettersOfTheExtensionDoNotFreeATitle) {
    files.PutFolder(folder);
    files.PutFile(folder + "\\abad.txt",
                  "\"abad\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    PutAs("Zebra.TXT", Record("Zebra", "stripes"));
    stage->ExpectBox("Error Number: 13) - Type mismatch", "Error Loading Notes Array",
                     forms::BoxIcon::None, forms::BoxButtons::Ok, BoxResult::Ok);
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_TRUE(StandardCode::Notes().IsTaken("Zebra"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("zebra"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("Zebra "));
    // Once it is in a slot, the title of the note decides.
    files.Remove(folder + "\\abad.txt");
    PutAs("Zebra.TXT", Record("Horse", "stripes"));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(StandardCode::Notes().IsTaken("Zebra"));
}

TEST_F(NoteStoreTest, TitlesInAnySlotAreTakenExactly) {
    for (const int slot : {1, 50, 100}) {
        Shared().NotesArray[slot].Title = "Shopping";
        EXPECT_TRUE(StandardCode::Notes().IsTaken("Shopping")) << slot;
        EXPECT_FALSE(StandardCode::Notes().IsTaken("shopping"));
        EXPECT_FALSE(StandardCode::Notes().IsTaken(" Shopping"));
        Shared().NotesArray[slot].Title.clear();
    }
}

TEST_F(NoteStoreTest, OneBadFileIsReportedOnceUntilTheFolderChanges) {
    PutAs("a.txt", Record("a", "text"));
    PutAs("b.txt", Record("b", "text"));
    files.SetDenied(folder + "\\b.txt", true);
    const auto expectReport = [this] {
        stage->ExpectBox("Error Number: 70) - Permission denied", "Error Loading Notes Array",
                         forms::BoxIcon::None, forms::BoxButtons::Ok, BoxResult::Ok);
    };
    expectReport();
    Start([] {
        StandardCode::LoadNotesArray();
        StandardCode::LoadNotesArray();
    });
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(stage->HasExpectations());
    PutAs("a.txt", Record("a", "changed"));
    expectReport();
    Start([] { StandardCode::LoadNotesArray(); });
    PutAs("a.txt", Record("a", "changed again"));
    Start([] {
        const NoteStore::Quiet quiet(StandardCode::Notes());
        StandardCode::LoadNotesArray();
    });
}

TEST_F(NoteStoreTest, TheHundredAndFirstFileIsReportedOnceForEachAction) {
    for (int i = 1; i <= 101; ++i) {
        PutAs("Note " + std::to_string(1000 + i) + ".txt", Record("Note", "text"));
    }
    for (int action = 1; action <= 2; ++action) {
        stage->ExpectBox("Error Number: 9) - Subscript out of range", "Error Loading Notes Array",
                         forms::BoxIcon::None, forms::BoxButtons::Ok, BoxResult::Ok);
        Start([] {
            StandardCode::LoadNotesArray();
            StandardCode::LoadNotesArray();
        });
    }
    EXPECT_EQ(Shared().NoteCount, 100);
    EXPECT_EQ(Shared().NotesArray[100].Title, "Note");
}

TEST_F(NoteStoreTest, ADamagedFileOfAnOpenEditorIsKeptAndWrittenAgain) {
    PutNote(Record("Dentist", "text"));
    ReadAll();
    Advance(2000);
    files.PutFile(PathOf("Dentist"), "\"Dent");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_TRUE(InFolder().empty());
    Advance(2000);
    ASSERT_EQ(InFolder().size(), 1U);
    RestartProgram();
    ReadAll();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "text");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(NoteStoreTest, AnErasedOrReplacedFileOfAnOpenEditorIsUnsaved) {
    for (const bool isErased : {true, false}) {
        files.PutFolder(folder);
        PutNote(Record("Dentist", "text"));
        ReadAll();
        if (isErased) {
            files.Remove(PathOf("Dentist"));
        } else {
            PutNote(Record("Dentist", "by another program"));
        }
        Start([] { StandardCode::LoadNotesArray(); });
        Advance(2000);
        EXPECT_EQ(InFolder().size(), isErased ? 1U : 2U);
        user->Restore(Editor("Dentist"));
        user->Click(Editor("Dentist").tlbMain, "Hide");
        // A file that was changed elsewhere is newer than an editor that nobody touched.
        EXPECT_EQ(Saved("Dentist").Text, isErased ? "text" : "by another program");
        EXPECT_EQ(files.RecycledBytes().size(), isErased ? 0U : 1U);
    }
}

TEST_F(NoteStoreTest, AnEditIsWrittenOverAFileThatWasChangedElsewhere) {
    PutNote(Record("Dentist", "text"));
    ReadAll();
    PutNote(Record("Dentist", "by another program"));
    TypeInto(Editor("Dentist"), "typed here");
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "typed here");
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("by another program"), std::string::npos);
}

TEST_F(NoteStoreTest, AFileThatCannotBeReadAnyMoreMakesItsEditorUnsaved) {
    PutNote(Record("Dentist", "text"));
    ReadAll();
    files.PutFile(PathOf("Dentist"),
                  "\"Dentist\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    stage->ExpectBox("Error Number: 13) - Type mismatch", "Error Loading Notes Array",
                     forms::BoxIcon::None, forms::BoxButtons::Ok, BoxResult::Ok);
    Start([] { StandardCode::LoadNotesArray(); });
    Advance(2000);
    EXPECT_EQ(InFolder().size(), 2U);
}

TEST_F(NoteStoreTest, AnEditorWhoseFileIsInNoSlotNoticesItsChange) {
    for (const bool isFull : {true, false}) {
        SCOPED_TRACE(isFull ? "more than 100 files" : "behind a file that fails");
        files.PutFolder(folder);
        for (int i = 1; isFull && i <= 100; ++i) {
            PutAs("Note " + std::to_string(1000 + i) + ".txt", Record("Note", "text"));
        }
        PutAs("Zebra.txt", Record("Zebra", "stripes"));
        Start(StandardCode::ReadNotes);
        if (!isFull) {
            files.PutFile(folder + "\\abad.txt",
                          "\"abad\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
        }
        stage->improvise.box = [](const forms::BoxRequest&) { return BoxResult::Ok; };
        const auto load = [this] { Start([] { StandardCode::LoadNotesArray(); }); };
        const auto isRead = [this] {
            return std::count(files.Log().begin(), files.Log().end(),
                              "read " + folder + "\\Zebra.txt");
        };
        load();
        const EditedNote& note = *StandardCode::Notes().FindOpen("Zebra.txt");
        EXPECT_FALSE(note.IsFileOther());
        files.ClearLog();
        load();
        load();
        EXPECT_EQ(isRead(), 0);
        PutAs("Zebra.txt", Record("Zebra", "spots"));
        load();
        EXPECT_TRUE(note.IsFileOther());
        EXPECT_EQ(isRead(), 1);
        load();
        EXPECT_EQ(isRead(), 1);
        Advance(2000);
        EXPECT_EQ(files.List(folder, ".recovery").size(), 1U);
        // Written again as it was, by a program that gives it another time.
        PutAs("Zebra.txt", Record("Zebra", "stripes"));
        load();
        EXPECT_FALSE(note.IsFileOther());
        files.Remove(folder + "\\Zebra.txt");
        load();
        EXPECT_TRUE(note.IsFileGone());
        RestartProgram();
        for (const std::string& name : InFolder()) {
            files.Remove(folder + '\\' + name);
        }
    }
}

TEST_F(NoteStoreTest, AFileInNoSlotThatWasHeldIsReadWhenItIsFree) {
    files.PutFolder(folder);
    PutAs("Zebra.txt", Record("Zebra", "stripes"));
    Start(StandardCode::ReadNotes);
    files.PutFile(folder + "\\abad.txt",
                  "\"abad\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    stage->improvise.box = [](const forms::BoxRequest&) { return BoxResult::Ok; };
    PutAs("Zebra.txt", Record("Zebra", "stripes"));
    files.SetDenied(folder + "\\Zebra.txt", true);
    Start([] { StandardCode::LoadNotesArray(); });
    const EditedNote& note = *StandardCode::Notes().FindOpen("Zebra.txt");
    EXPECT_TRUE(note.IsFileOther());
    files.SetDenied(folder + "\\Zebra.txt", false);
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(note.IsFileOther());
}

TEST_F(NoteStoreTest, AFolderThatIsGoneForAMomentLeavesNothingUnsaved) {
    PutNote(Record("Dentist", "text"));
    ReadAll();
    const auto disk = files;
    files.Remove(PathOf("Dentist"));
    Start([] { StandardCode::LoadNotesArray(); });
    files = disk;
    Start([] { StandardCode::LoadNotesArray(); });
    Advance(3000);
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(NoteStoreTest, TheAlarmOfANoteInTheFileOfAnotherRings) {
    frmNote& first = MakeNote("Same", "one");
    Start([&first] { first.WriteNote(); });
    Start([] { StandardCode::CreateNote("Same"); });
    auto& second = static_cast<frmNote&>(*runtime->LoadedForms().back());
    user->Type(second.txtNote, "two");
    user->Click(second.cmdAlarm);
    user->CloseBox(second);
    ASSERT_EQ(Shared().NotesArray[1].AlarmState, "1");
    const auto opened =
        NoteAlarmsCheck::DisplayDue(base::Combine(forms::Today(), DateTime::FromTime(12, 0, 0)));
    ASSERT_NE(opened.last, nullptr);
    EXPECT_EQ(opened.last->lblNoteText.text(), "two");
}

TEST_F(NoteStoreTest, TheAlarmOfAFileWithTwoEditorsRingsInTheOneThatSavedIt) {
    frmNote& first = MakeNote("Same", "one");
    Start([&first] { first.WriteNote(); });
    Start([] { StandardCode::CreateNote("Same"); });
    auto& second = static_cast<frmNote&>(*runtime->LoadedForms().back());
    user->Click(second.cmdAlarm);
    Start([&second] { second.WriteNote(); });
    EXPECT_EQ(&StandardCode::Notes().FindOpen("same.TXT")->Editor().Window(), &second);
    const auto opened =
        NoteAlarmsCheck::DisplayDue(base::Combine(forms::Today(), DateTime::FromTime(12, 0, 0)));
    EXPECT_EQ(opened.last, nullptr);
    // If neither shows what the file holds, it is the first.
    PutNote(Record("Same", "by another program"));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(&StandardCode::Notes().FindOpen("Same.txt")->Editor().Window(), &first);
}

TEST_F(NoteStoreTest, AnAlarmDisplayPutsANewerTextAside) {
    auto record = Record("Dentist", "old");
    record.AlarmState = "1";
    PutNote(record);
    Start([] { StandardCode::LoadNotesArray(); });
    std::shared_ptr<frmDisplayNote> display;
    Start([&] { display = StandardCode::DisplayNote(1); });
    user->Type(display->lblNoteText, "two words");
    PutNote(Record("Dentist", "a whole page"));
    stage->ExpectBox("Would you like to erase this note?", " Erase Note?", forms::BoxIcon::Question,
                     forms::BoxButtons::YesNo, BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(Saved("Dentist").Text, "two words");
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("a whole page"), std::string::npos);
}

TEST_F(NoteStoreTest, TheTextOfANoteWhoseErasingWasNotConfirmedOutlivesTheSession) {
    for (const bool isAnswered : {true, false}) {
        frmNote& note = MakeNote("Dentist", "typed");
        stage->ExpectBox("Are you sure you would like to erase DENTIST?              ", "Kill Note",
                         forms::BoxIcon::Information, forms::BoxButtons::YesNo, BoxResult::No,
                         BoxResult::No, [isAnswered] {
                             if (!isAnswered) {
                                 forms::gestures::EndSession();
                             }
                         });
        user->Click(note.tlbMain, "Erase");
        if (isAnswered) {
            user->Type(note.txtNote, "typed more");
            forms::gestures::EndSession();
        }
        RestartProgram();
        Start(StandardCode::ReadNotes);
        EXPECT_EQ(Editor("Dentist").txtNote.text(), isAnswered ? "typed more" : "typed");
        StandardCode::Shared().ControlPanelMode = false;
        user->CloseBox(Editor("Dentist"));
        files.Remove(PathOf("Dentist"));
    }
}

TEST_F(NoteStoreTest, ADamagedFileIsRenamedIfThereIsNoRecycleBin) {
    files.SetRecycleBin(false);
    files.PutFolder(folder);
    files.PutFile(folder + "\\b.txt", "\"b\",\"half a");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(InFolder(), Names{"b.txt.damaged"});
    EXPECT_EQ(files.Peek(folder + "\\b.txt.damaged"), "\"b\",\"half a");
}

TEST_F(NoteStoreTest, AWholeLeftoverBecomesTheNoteThatIsMissing) {
    files.PutFolder(folder);
    const std::string mine = folder + "\\~Jotwright-0123456789abcdef-3.tmp";
    files.PutFile(mine, NoteFile::Encode(Record("Lost", "found")));
    files.PutFile(folder + "\\~Jotwright-0123456789abcdef-4.tmp",
                  NoteFile::Encode(Record("Half", "gone")).substr(0, 20));
    PutNote(Record("There", "saved"));
    files.PutFile(folder + "\\~Jotwright-0123456789abcdef-5.tmp",
                  NoteFile::Encode(Record("There", "older")));
    files.PutFile(folder + "\\~Jotwright-00000000000000ff-1.tmp", "of a program that runs");
    files.SetLocked(folder + "\\~Jotwright-00000000000000ff.lock", true);
    files.PutFile(folder + "\\~Jotwright report.tmp", "the user's");
    NoteStore::AdoptLeftovers();
    EXPECT_EQ(InFolder(), (Names{"Lost.txt", "There.txt", "~Jotwright report.tmp",
                                 "~Jotwright-00000000000000ff-1.tmp"}));
    EXPECT_EQ(In("Lost.txt").Text, "found");
    EXPECT_EQ(In("There.txt").Text, "saved");
}

TEST_F(NoteStoreTest, AFileThatIsHeldForAMomentIsWaitedFor) {
    PutNote(Record("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "new");
    files.SetDenied(PathOf("Dentist"), true);
    int pauses = 0;
    system.onPause = [&] {
        if (++pauses == 20) {
            files.SetDenied(PathOf("Dentist"), false);
        }
    };
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(Saved("Dentist").Text, "new");
    EXPECT_EQ(pauses, 20);
}

TEST_F(NoteStoreTest, AFileThatStaysHeldIsReportedAfterASecondAndAHalf) {
    PutNote(Record("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "new");
    files.SetDenied(PathOf("Dentist"), true);
    system.paused = 0;
    ExpectWriteError("70 - Permission denied");
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(system.paused, 1500);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "new");
    files.SetDenied(PathOf("Dentist"), false);
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(Saved("Dentist").Text, "new");
}

TEST_F(NoteStoreTest, ATextThatWasChangedBeforeAnActivationIsAskedAbout) {
    frmNote& note = OpenThroughPanel(Record("Dentist", "old"));
    frmNote& other = OpenThroughPanel(Record("Other", ""));
    user->Type(note.txtNote, "old and new");
    user->Click(other.txtNote);
    user->Click(note.txtNote);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "old and new");
}

TEST_F(NoteStoreTest, EditOfAnOpenNoteWithUnsavedTextAsksWhenItCloses) {
    PutNote(Record("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "old and new");
    Shared().ControlPanelMode = true;
    frmNote& other = OpenThroughPanel(Record("Other", ""));
    user->Click(other.txtNote);
    Start([] { StandardCode::OpenNote(1); });
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
}

TEST_F(NoteStoreTest, TheProgramMayEndWhileTheSaveQuestionWaits) {
    frmNote& note = OpenThroughPanel(Record("Dentist", "old"));
    user->Type(note.txtNote, "old and new");
    stage->ExpectBox(" Would you like to save changes?     ", "Save Changes?",
                     forms::BoxIcon::Question, forms::BoxButtons::YesNo, BoxResult::Yes,
                     BoxResult::Yes, [this] { Start([this] { runtime->End(); }); });
    user->CloseBox(note);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(Saved("Dentist").Text, "old");
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old and new");
}

TEST_F(NoteStoreTest, AnEditThatNobodyNoticedIsInTheRecycleBin) {
    frmNote& note = OpenThroughPanel(Record("Dentist", "old"));
    user->Type(note.txtNote, "new");
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("\"new\""), std::string::npos);
}

TEST_F(NoteStoreTest, AFileInPlaceOfTheFolderIsReportedAtEachSave) {
    files.PutFile(folder, "a file");
    ReadAll();
    frmNote& note = MakeNote("Dentist", "text");
    ExpectWriteError("75 - Path/File access error");
    user->CloseBox(note);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
    files.Remove(folder);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "text");
}

}  // namespace
