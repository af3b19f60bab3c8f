#include "alarms/NoteAlarmsCheck.h"
#include "base/DateTime.h"
#include "forms/Services.h"
#include "notes/NoteLeftovers.h"
#include "notes/frmDisplayNote.h"
#include "tests/notes/NoteStoreProgram.h"

// A note is identified by its file, not by its title.

namespace {

using base::DateTime;
using forms::BoxResult;
using StandardCode::Shared;

class NoteStoreTest : public testing_support::NoteStoreProgram {
  protected:
    // Loads the array from a damaged file and, after it, the note "Zebra" in the given file.
    void LoadBehindADamagedFile(const std::string& file) {
        files.PutFolder(folder);
        PutNoteWithBadDate("abad");
        PutNoteAs(file, Note("Zebra", "stripes"));
        ExpectNotesArrayError("Error Number: 13) - Type mismatch");
        Start([] { StandardCode::LoadNotesArray(); });
    }

    static void ExpectOnlyZebraIsTaken() {
        EXPECT_TRUE(StandardCode::Notes().IsTaken("Zebra"));
        EXPECT_FALSE(StandardCode::Notes().IsTaken("zebra"));
        EXPECT_FALSE(StandardCode::Notes().IsTaken("Zebra "));
    }
};

TEST_F(NoteStoreTest, TwoFilesWithTheSameTitleAreTwoNotes) {
    PutNote(Note("Dentist", "new"));
    PutNoteAs("Dentist_old.txt", Note("Dentist", "old"));
    ReadAll();
    ASSERT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
    TypeInto(EditorOf("Dentist.txt"), "newest");
    user->CloseBox(EditorOf("Dentist.txt"));
    CloseEditors();
    EXPECT_EQ(In("Dentist.txt").Text, "newest");
    EXPECT_EQ(In("Dentist_old.txt").Text, "old");
    EXPECT_EQ(InFolder(), (Names{"Dentist.txt", "Dentist_old.txt"}));
}

TEST_F(NoteStoreTest, AFileWhoseNameDiffersFromItsTitleIsRewrittenInPlace) {
    PutNoteAs("x.txt", Note("Real title", "old"));
    ReadAll();
    TypeInto(EditorOf("x.txt"), "new");
    CloseEditors();
    EXPECT_EQ(In("x.txt").Text, "new");
    EXPECT_EQ(In("x.txt").Title, "Real title");
    EXPECT_EQ(InFolder(), Names{"x.txt"});
}

TEST_F(NoteStoreTest, ANoteWithoutATitleIsEditedAndErasedByItsFile) {
    PutNote(Note("a", "neighbour"));
    PutNoteAs("x.txt", Note("", "old"));
    ReadAll();
    EXPECT_EQ(EditorOf("x.txt").caption(), "");
    TypeInto(EditorOf("x.txt"), "typed");
    Advance(2000);
    RestartProgram();
    ReadAll();
    EXPECT_EQ(EditorOf("x.txt").txtNote.text(), "typed");
    CloseEditors();
    EXPECT_EQ(In("x.txt").Text, "typed");
    EXPECT_EQ(In("x.txt").Title, "");
    EXPECT_EQ(InFolder(), (Names{"a.txt", "x.txt"}));

    Start([] { StandardCode::OpenNote(2); });
    user->Type(EditorOf("x.txt").txtNote, "typed later");
    ExpectSaved("");
    user->Click(EditorOf("x.txt").tlbMain, "Save");
    EXPECT_EQ(In("x.txt").Text, "typed later");
    ExpectKillNoteQuestion("", BoxResult::Yes);
    user->Click(EditorOf("x.txt").tlbMain, "Erase");
    EXPECT_EQ(InFolder(), Names{"a.txt"});
    EXPECT_EQ(files.RecycleBin(), Names{folder + "\\x.txt"});
}

TEST_F(NoteStoreTest, ANoteWithoutATitleRingsAndTurnsOffTheAlarmOfItsFile) {
    PutNoteAs("x.txt", Note("").WithAlarmAt(9, 0, 5).WithSound());
    ReadAll();
    ExpectEditorAlarm();
    Advance(10'000);
    CloseEditors();
    EXPECT_EQ(In("x.txt").AlarmState, "0");
    EXPECT_EQ(InFolder(), Names{"x.txt"});
}

TEST_F(NoteStoreTest, TheAlarmDisplayOfANoteWithoutATitleUsesItsFile) {
    PutNote(Note("a", "neighbour"));
    PutNoteAs("x.txt", Note("").WithAlarm());
    Start([] { StandardCode::LoadNotesArray(); });
    for (const BoxResult answer : {BoxResult::No, BoxResult::Yes}) {
        std::shared_ptr<frmDisplayNote> display;
        Start([&display] { display = StandardCode::DisplayNote(2); });
        EXPECT_EQ(display->lblNoteText.text(), "text");
        ExpectEraseNoteQuestion(answer);
        user->CloseBox(*display);
        EXPECT_EQ(In("a.txt").Text, "neighbour");
        if (answer == BoxResult::No) {
            EXPECT_EQ(In("x.txt").Text, "text");
            EXPECT_EQ(In("x.txt").AlarmState, "0");
        }
    }
    EXPECT_EQ(InFolder(), Names{"a.txt"});
}

TEST_F(NoteStoreTest, TwoNotesWithTheSameTitleAreOpenedAndErasedSeparately) {
    PutNote(Note("Dentist", "new"));
    PutNoteAs("Dentist_old.txt", Note("Dentist", "old"));
    Start([] { StandardCode::LoadNotesArray(); });
    Start([] { StandardCode::OpenNote(2); });
    EXPECT_EQ(EditorOf("Dentist_old.txt").txtNote.text(), "old");
    Start([] { StandardCode::OpenNote(1); });
    EXPECT_EQ(EditorOf("Dentist.txt").txtNote.text(), "new");
    Start([] { StandardCode::OpenNote(2); });
    EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Click(EditorOf("Dentist_old.txt").tlbMain, "Erase");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(NoteStoreTest, ABlankAtTheEndOfATitleMakesAnotherNote) {
    PutNote(Note("Dentist", "one"));
    PutNote(Note("Dentist ", "two").WithAlarm());
    Start([] { StandardCode::LoadNotesArray(); });
    ASSERT_EQ(Shared().NotesArray[1].Title, "Dentist ");
    for (const BoxResult answer : {BoxResult::No, BoxResult::Yes}) {
        Start([] { StandardCode::DisplayNote(1); });
        ExpectEraseNoteQuestion(answer);
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

TEST_F(NoteStoreTest, AnotherNotesFileGoesToTheRecycleBinBeforeANewNoteTakesIt) {
    PutNote(Note("Shopping", "milk"));
    ReadAll();
    frmNote& other = MakeNote("shopping", "bread");
    user->CloseBox(other);
    EXPECT_EQ(In("Shopping.txt").Text, "bread");
    ASSERT_EQ(files.RecycleBin(), Names{folder + "\\Shopping.txt"});
    EXPECT_EQ(files.RecycledBytes()[0], NoteFile::Encode(Note("Shopping", "milk")));
    // The open editor of the old file is now unsaved.
    Advance(3000);
    EXPECT_EQ(InFolder().size(), 2U);
    // The editor has no edit, so closing it does not replace the newer text.
    user->CloseBox(Editor("Shopping"));
    EXPECT_EQ(In("Shopping.txt").Text, "bread");
    ASSERT_EQ(files.RecycledBytes().size(), 2U);
    EXPECT_NE(files.RecycledBytes()[1].find("milk"), std::string::npos);
}

TEST_F(NoteStoreTest, WithoutARecycleBinTheOldFileIsKeptUnderAnotherName) {
    files.SetRecycleBin(false);
    PutNote(Note("Shopping", "milk"));
    for (const char* text : {"bread", "butter"}) {
        user->CloseBox(MakeNote("shopping", text));
    }
    EXPECT_EQ(InFolder(),
              (Names{"Shopping.txt", "Shopping.txt (2).replaced", "Shopping.txt.replaced"}));
    EXPECT_EQ(In("Shopping.txt").Text, "butter");
    EXPECT_EQ(In("Shopping.txt.replaced").Text, "milk");
    EXPECT_EQ(In("Shopping.txt (2).replaced").Text, "bread");
}

TEST_F(NoteStoreTest, TheTextsOfTwoNewNotesWithTheSameTitleAreBothKept) {
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
    using forms::headless::MemoryFiles;
    const std::string milk = NoteFile::Encode(Note("Shopping", "milk"));
    for (const bool hasRecycleBin : {true, false}) {
        files.SetRecycleBin(hasRecycleBin);
        bool isKilled = true;
        for (int step = 1; isKilled; ++step) {
            isKilled = false;
            for (const auto moment : {MemoryFiles::Moment::Before, MemoryFiles::Moment::Middle,
                                      MemoryFiles::Moment::After}) {
                SCOPED_TRACE(testing::Message() << step << ' ' << static_cast<int>(moment)
                                                << (hasRecycleBin ? "" : ", no Recycle Bin"));
                for (const std::string& name : InFolder()) {
                    files.Remove(folder + '\\' + name);
                }
                PutNote(Note("Shopping", "milk"));
                const std::size_t recycled = files.RecycledBytes().size();
                frmNote& other = MakeNote("shopping", "bread");
                files.KillAt(step, moment);
                bool isKilledHere = false;
                try {
                    user->Click(other.tlbMain, "Hide");
                } catch (const forms::headless::Killed&) {
                    isKilledHere = true;
                }
                isKilled = isKilled || isKilledHere;
                RestartProgram();
                Start([] { StandardCode::AdoptNoteLeftovers(); });
                const std::string text = In("Shopping.txt").Text;
                EXPECT_TRUE(text == "milk" || text == "bread") << text;
                EXPECT_TRUE(isKilledHere || text == "bread");
                const bool isAside = files.RecycledBytes().size() > recycled
                                         ? files.RecycledBytes().back() == milk
                                         : files.Peek(folder + "\\Shopping.txt.replaced") == milk;
                EXPECT_TRUE(text == "milk" || isAside) << "milk is lost";
            }
        }
    }
}

TEST_F(NoteStoreTest, TheTitleOfAFileAfterADamagedFileIsTaken) {
    LoadBehindADamagedFile("Zebra.txt");
    ExpectOnlyZebraIsTaken();
    EXPECT_TRUE(StandardCode::Notes().IsTaken("abad"));
    EXPECT_FALSE(StandardCode::Notes().IsTaken("What?"));
}

TEST_F(NoteStoreTest, ATitleIsTakenInAnyCaseOfTheExtension) {
    LoadBehindADamagedFile("Zebra.TXT");
    ExpectOnlyZebraIsTaken();
    // As soon as the note is in a slot, its title is compared instead of its file name.
    files.Remove(folder + "\\abad.txt");
    PutNoteAs("Zebra.TXT", Note("Horse", "stripes"));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(StandardCode::Notes().IsTaken("Zebra"));
}

TEST_F(NoteStoreTest, ATitleInASlotIsTakenInTheSameCaseOnly) {
    for (const int slot : {1, 50, 100}) {
        Shared().NotesArray[slot].Title = "Shopping";
        EXPECT_TRUE(StandardCode::Notes().IsTaken("Shopping")) << slot;
        EXPECT_FALSE(StandardCode::Notes().IsTaken("shopping"));
        EXPECT_FALSE(StandardCode::Notes().IsTaken(" Shopping"));
        Shared().NotesArray[slot].Title.clear();
    }
}

TEST_F(NoteStoreTest, TheAlarmOfANoteInTheFileOfAnotherNoteRings) {
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

TEST_F(NoteStoreTest, TheAlarmOfAFileWithTwoEditorsRingsInTheEditorThatSavedIt) {
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
    // If neither editor shows the text of the file, the first editor rings.
    PutNote(Note("Same", "by another program"));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(&StandardCode::Notes().FindOpen("Same.txt")->Editor().Window(), &first);
}

TEST_F(NoteStoreTest, AnAlarmDisplayPutsANewerTextAside) {
    PutNote(Note("Dentist", "old").WithAlarm());
    Start([] { StandardCode::LoadNotesArray(); });
    std::shared_ptr<frmDisplayNote> display;
    Start([&] { display = StandardCode::DisplayNote(1); });
    user->Type(display->lblNoteText, "two words");
    PutNote(Note("Dentist", "a whole page"));
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(Saved("Dentist").Text, "two words");
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("a whole page"), std::string::npos);
}

TEST_F(NoteStoreTest, ADamagedFileIsRenamedIfThereIsNoRecycleBin) {
    files.SetRecycleBin(false);
    files.PutFolder(folder);
    files.PutFile(folder + "\\b.txt", "\"b\",\"half a");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(InFolder(), Names{"b.txt.damaged"});
    EXPECT_EQ(files.Peek(folder + "\\b.txt.damaged"), "\"b\",\"half a");
}

TEST_F(NoteStoreTest, AWholeLeftoverBecomesTheMissingNote) {
    files.PutFolder(folder);
    const std::string mine = folder + "\\~Jotwright-0123456789abcdef-3.tmp";
    files.PutFile(mine, NoteFile::Encode(Note("Lost", "found")));
    files.PutFile(folder + "\\~Jotwright-0123456789abcdef-4.tmp",
                  NoteFile::Encode(Note("Half", "gone")).substr(0, 20));
    PutNote(Note("There", "saved"));
    files.PutFile(folder + "\\~Jotwright-0123456789abcdef-5.tmp",
                  NoteFile::Encode(Note("There", "older")));
    files.PutFile(folder + "\\~Jotwright-00000000000000ff-1.tmp", "of a program that runs");
    files.SetLocked(folder + "\\~Jotwright-00000000000000ff.lock", true);
    files.PutFile(folder + "\\~Jotwright report.tmp", "the user's");
    StandardCode::AdoptNoteLeftovers();
    EXPECT_EQ(InFolder(), (Names{"Lost.txt", "There.txt", "~Jotwright report.tmp",
                                 "~Jotwright-00000000000000ff-1.tmp"}));
    EXPECT_EQ(In("Lost.txt").Text, "found");
    EXPECT_EQ(In("There.txt").Text, "saved");
}

}  // namespace
