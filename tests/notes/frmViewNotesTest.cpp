#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "notes/NoteStore.h"
#include "notes/frmViewNotes.h"
#include "tests/notes/ViewNotesProgram.h"

namespace {

using base::DateTime;
using forms::BoxResult;
using StandardCode::Shared;
using frmViewNotesTest = testing_support::ViewNotesProgram;

constexpr forms::Color red{255, 0, 0};

TEST_F(frmViewNotesTest, WithoutNotesTheListIsDisabled) {
    Open();
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 0");
    EXPECT_EQ(Panel().lblTotalNotes.foreColor(), forms::black);
    EXPECT_FALSE(Panel().lvwNotes.enabled());
    EXPECT_TRUE(Panel().cmdNew.enabled());
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    EXPECT_FALSE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesTest, RowsShowTheAlarmInTheFormatsOfTheSystem) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30));
    PutNote(Note("Shopping"));
    PutNote(Note("Midnight").WithAlarmAt(DateTime{}));
    Open();
    const auto& rows = Panel().lvwNotes.Rows();
    ASSERT_EQ(rows.size(), 3U);
    ASSERT_EQ(Panel().lvwNotes.imageList, &Panel().ilsNotes);
    const auto& images = Panel().ilsNotes.images;
    EXPECT_EQ(rows[0].key, "Dentist");
    EXPECT_EQ(rows[0].texts, (std::vector<std::string>{"", "Dentist", "5/14/2004 9:30:00 AM"}));
    EXPECT_EQ(images.at(static_cast<std::size_t>(rows[0].image)).resource, "alarmset");
    EXPECT_EQ(rows[1].texts, (std::vector<std::string>{"", "Midnight", "5/14/2004 12:00:00 AM"}));
    EXPECT_EQ(rows[2].key, "Shopping");
    EXPECT_EQ(rows[2].texts, (std::vector<std::string>{"", "Shopping", "Alarm Not Set"}));
    EXPECT_EQ(images.at(static_cast<std::size_t>(rows[2].image)).resource, "alarmnotset");
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 3");
    EXPECT_TRUE(Panel().lvwNotes.enabled());
}

TEST_F(frmViewNotesTest, AnyAlarmStateButZeroIsAnAlarm) {
    Note odd = Note("Odd").At(9, 30);
    odd.AlarmState = "yes";
    PutNote(odd);
    Open();
    EXPECT_EQ(Panel().lvwNotes.Rows()[0].texts[2], "5/14/2004 9:30:00 AM");
}

TEST_F(frmViewNotesTest, ARewrittenNoteIsListedWithItsAlarmOff) {
    files.PutFile(folder + "\\Milk.txt",
                  "\"Milk\",\"text\",#2004-05-14#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n");
    Open();
    ASSERT_EQ(Panel().lvwNotes.Rows().size(), 1U);
    EXPECT_EQ(Panel().lvwNotes.Rows()[0].texts,
              (std::vector<std::string>{"", "Milk", "Alarm Not Set"}));
}

TEST_F(frmViewNotesTest, LoadingKeepsTheNotesArrayCurrent) {
    PutNote(Note("A"));
    PutNote(Note("B"));
    Open();
    EXPECT_EQ(Shared().NoteCount, 2);
    EXPECT_EQ(Shared().NotesArray[2].Title, "B");
}

TEST_F(frmViewNotesTest, TwoFilesWithTheSameTitleHaveTwoRows) {
    PutNoteAs("One.txt", Note("Same"));
    PutNoteAs("Two.txt", Note("Same"));
    Open();
    const auto& rows = Panel().lvwNotes.Rows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].key, "Same");
    EXPECT_EQ(rows[1].key, "");
    EXPECT_EQ(rows[1].texts[1], "Same");
    user->Select(Panel().lvwNotes, 1);
    ExpectDeletingNoteQuestion("SAME", BoxResult::No);
    user->Click(Panel().cmdRemove);
}

TEST_F(frmViewNotesTest, AFileThatCannotBeReadHasNoRow) {
    PutNote(Note("A"));
    PutNote(Note("C"));
    files.PutFile(folder + "\\B1.txt", "\"cut\"");
    files.PutFile(folder + "\\B2.txt", "\"cut off too\"");
    files.PutFile(folder + "\\B3.txt", "");
    Open();
    EXPECT_EQ(Titles(), (std::vector<std::string>{"A", "C"}));
    // Each rebuild of the array has removed one file.
    EXPECT_EQ(files.Names(folder), (std::vector<std::string>{"A.txt", "B3.txt", "C.txt"}));
}

TEST_F(frmViewNotesTest, FillingTheListReadsEachFileOnce) {
    PutMany(50);
    files.ClearLog();
    Open();
    const auto& log = files.Log();
    EXPECT_EQ(std::count_if(log.begin(), log.end(),
                            [](const std::string& entry) { return entry.starts_with("read"); }),
              50);
}

TEST_F(frmViewNotesTest, ANoteThatAnotherProgramChangedIsReadAgain) {
    PutNote(Note("A"));
    Open();
    user->Click(Panel().cmdOK);
    PutNote(Note("A", "longer than before").WithAlarmAt(9, 30));
    Open();
    EXPECT_EQ(Panel().lvwNotes.Rows()[0].texts[2], "5/14/2004 9:30:00 AM");
}

TEST_F(frmViewNotesTest, ManyRowsAreDrawnAtOnce) {
    const auto changesOfLoading = [this] {
        const auto before = stage->ChangesShown();
        Start([] { Panel().Load(); });
        const auto after = stage->ChangesShown();
        Start([] { Panel().Unload(); });
        return after - before;
    };
    PutMany(1);
    const auto ofOne = changesOfLoading();
    PutMany(99);
    EXPECT_EQ(changesOfLoading(), ofOne);
}

TEST_F(frmViewNotesTest, AHundredNotesAreTheMaximum) {
    PutMany(100);
    Open();
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 100 ( Maximum Reached )");
    EXPECT_EQ(Panel().lblTotalNotes.foreColor(), red);
    EXPECT_FALSE(Panel().cmdNew.enabled());
    EXPECT_EQ(Panel().lvwNotes.Rows().size(), 100U);
}

TEST_F(frmViewNotesTest, ErasingBelowTheMaximumAllowsNewNotesAgain) {
    PutMany(100);
    Open();
    user->Select(Panel().lvwNotes, 41);
    ExpectDeletingNoteQuestion("NOTE 1042", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_TRUE(Panel().cmdNew.enabled());
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 99");
    EXPECT_EQ(Panel().lblTotalNotes.foreColor(), forms::black);
}

TEST_F(frmViewNotesTest, ErasingOneOfAHundredAndOneStillAllowsNoNewNote) {
    PutMany(101);
    ExpectNotesArrayError("Error Number: 9) - Subscript out of range");
    Open();
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 100 ( Maximum Reached )");
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("NOTE 1001", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_FALSE(Panel().cmdNew.enabled());
    EXPECT_EQ(Panel().lblTotalNotes.foreColor(), red);
    EXPECT_EQ(files.Names(folder).size(), 100U);
}

TEST_F(frmViewNotesTest, ANoteWhoseFileHasAnotherNameIsErased) {
    PutNoteAs("Note 1001.txt", Note("elsewhere"));
    PutNote(Note("elsewhere else"));
    Open();
    user->Select(Panel().lvwNotes, 1);
    ExpectDeletingNoteQuestion("ELSEWHERE", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_EQ(files.Names(folder), std::vector<std::string>{"elsewhere else.txt"});
}

TEST_F(frmViewNotesTest, SelectingARowEnablesEditAndErase) {
    PutNote(Note("A"));
    Open();
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    user->Select(Panel().lvwNotes, 0);
    EXPECT_TRUE(Panel().cmdEdit.enabled());
    EXPECT_TRUE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesTest, ErasingAsksInCapitalsAndRecyclesTheFile) {
    PutNote(Note("Milk"));
    PutNote(Note("Shopping"));
    Open();
    user->Select(Panel().lvwNotes, 1);
    ExpectDeletingNoteQuestion("SHOPPING", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_EQ(Titles(), std::vector<std::string>{"Milk"});
    EXPECT_EQ(files.Names(folder), std::vector<std::string>{"Milk.txt"});
    EXPECT_EQ(files.RecycleBin().size(), 1U);
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 1");
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    EXPECT_FALSE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesTest, ErasingTheLastNoteDisablesTheList) {
    PutNote(Note("Only"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("ONLY", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 0");
    EXPECT_FALSE(Panel().lvwNotes.enabled());
}

TEST_F(frmViewNotesTest, ErasingAsksWithTheTitleAndErasesTheFileOfTheRow) {
    PutNoteAs("Padded.txt", Note("  Padded "));
    Open();
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("  PADDED ", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_TRUE(files.Names(folder).empty());
}

TEST_F(frmViewNotesTest, IfTwoTitlesDifferInABlankOnlyTheChosenNoteIsErased) {
    for (const std::string erased : {"Dentist", "Dentist "}) {
        const std::string kept = erased == "Dentist" ? "Dentist " : "Dentist";
        PutNote(Note("Dentist"));
        PutNote(Note("Dentist "));
        Open();
        const auto titles = Titles();
        ASSERT_EQ(titles.size(), 2U);
        user->Select(Panel().lvwNotes, titles[0] == erased ? 0 : 1);
        ExpectDeletingNoteQuestion(erased == "Dentist" ? "DENTIST" : "DENTIST ", BoxResult::Yes);
        user->Click(Panel().cmdRemove);
        EXPECT_EQ(files.Names(folder), std::vector<std::string>{kept + ".txt"});
        EXPECT_EQ(files.RecycleBin().back(), folder + "\\" + erased + ".txt");
        EXPECT_EQ(Titles(), std::vector<std::string>{kept});
        user->Click(Panel().cmdOK);
    }
}

TEST_F(frmViewNotesTest, AnsweringNoKeepsFileAndRowAndWaitsForAnotherClick) {
    PutNote(Note("Milk"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("MILK", BoxResult::No);
    user->Click(Panel().cmdRemove);
    EXPECT_EQ(Titles(), std::vector<std::string>{"Milk"});
    EXPECT_TRUE(files.FileExists(folder + "\\Milk.txt"));
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    EXPECT_FALSE(Panel().cmdRemove.enabled());
    user->Select(Panel().lvwNotes, 0);
    EXPECT_TRUE(Panel().cmdEdit.enabled());
    EXPECT_TRUE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesTest, ErasingWithNothingSelectedIsReported) {
    PutNote(Note("Milk"));
    Open();
    stage->ExpectPopup("mnuPop", "mnuEraseNote");
    ExpectNothingSelected();
    user->RightClick(Panel().lvwNotes);
    EXPECT_TRUE(files.FileExists(folder + "\\Milk.txt"));
}

TEST_F(frmViewNotesTest, AFileThatCannotBeDeletedIsReported) {
    PutNote(Note("Milk"));
    Open();
    files.SetDenied(folder + "\\Milk.txt", true);
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("MILK", BoxResult::Yes);
    ExpectNothingSelected();
    user->Click(Panel().cmdRemove);
    EXPECT_TRUE(files.Peek(folder + "\\Milk.txt").has_value());
}

TEST_F(frmViewNotesTest, OpeningThePanelListsTheFolderOnce) {
    PutMany(100);
    Start([] { StandardCode::LoadNotesArray(); });
    const int before = files.Listings();
    files.ClearLog();
    Open();
    EXPECT_EQ(files.Listings() - before, 1);
    EXPECT_EQ(files.Log(), std::vector<std::string>{});
    EXPECT_EQ(Titles().size(), 100U);
}

TEST_F(frmViewNotesTest, SavingWithThePanelOpenListsTheFolderOnceAndReadsOneFile) {
    PutMany(100);
    Open();
    const int before = files.Listings();
    files.ClearLog();
    const Note changed = Note("Note 1050").WithAlarmAt(9, 30);
    Start([&changed] {
        StandardCode::Notes().Write(NoteStore::FileNameFor(changed.Title), changed);
        StandardCode::LoadNotesArray();
    });
    EXPECT_EQ(files.Listings() - before, 1);
    for (const std::string& entry : files.Log()) {
        EXPECT_TRUE(entry.starts_with("replace ") || entry.starts_with("write ") ||
                    entry == "read " + folder + "\\Note 1050.txt")
            << entry;
    }
    EXPECT_EQ(Panel().lvwNotes.Rows()[49].texts[2], "5/14/2004 9:30:00 AM");
}

TEST_F(frmViewNotesTest, SavingAnUnchangedNoteReadsOneFile) {
    PutMany(100);
    Open();
    files.ClearLog();
    Start([] {
        StandardCode::Notes().Write("Note 1050.txt", Note("Note 1050"));
        StandardCode::LoadNotesArray();
    });
    EXPECT_EQ(files.Log(), std::vector<std::string>{"read " + folder + "\\Note 1050.txt"});
}

}  // namespace
