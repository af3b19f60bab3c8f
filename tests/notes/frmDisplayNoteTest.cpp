#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "alarms/Bell.h"
#include "app/Grid.h"
#include "app/StandardCode.h"
#include "forms/Gestures.h"
#include "notes/NoteStore.h"
#include "notes/frmDisplayNote.h"
#include "tests/support/ProductProgram.h"

// The display of a note whose alarm is due: how it opens, what it shows, its sound and its menu.

namespace {

using forms::BoxIcon;
using forms::Color;
using forms::headless::RecordedSound;
using StandardCode::Shared;

const std::string buzzer = "C:\\Jotwright\\Alarm buzzer.wav";

class frmDisplayNoteTest : public testing_support::ProductProgram {
  protected:
    void SetUp() override {
        ProductProgram::SetUp();
        Shared().AlarmSoundPath = buzzer;
    }

    static void Fill(const Note& note, int slot = 1) { Shared().NotesArray[slot] = note; }

    std::shared_ptr<frmDisplayNote> Display(int slot = 1) {
        std::shared_ptr<frmDisplayNote> display;
        Start([slot, &display] { display = StandardCode::DisplayNote(slot); });
        return display;
    }

    std::shared_ptr<frmDisplayNote> DisplayColor(std::int16_t index) {
        Fill(Note("Dentist", "call").InColor(index));
        return Display();
    }

    void Option(const std::string& key, const std::string& value) {
        settings.values[{"Options", key}] = value;
    }

    // Switches the sound on, as the clock of the main window does.
    void SwitchSoundOn(frmDisplayNote& display) {
        Start([&display] {
            display.tmrSoundAlarm.enabled = true;
            Shared().AlarmSounding = true;
        });
    }
};

TEST_F(frmDisplayNoteTest, ShowsTheNote) {
    Fill(Note("Dentist", "line 1\r\nline 2").InColor(5).InPoints(14));
    const auto display = Display();
    ASSERT_TRUE(display);
    EXPECT_TRUE(display->IsVisible());
    EXPECT_FALSE(display->IsModal());
    EXPECT_EQ(display->caption(), "Dentist");
    EXPECT_EQ(display->lblNoteText.text(), "line 1\r\nline 2");
    EXPECT_EQ(display->lblNoteText.fontSize(), 14);
    EXPECT_FALSE(display->tmrSoundAlarm.enabled());
}

TEST_F(frmDisplayNoteTest, TakesTheColorOfTheNote) {
    const std::vector<Color> backs = {{255, 255, 255}, {255, 128, 128}, {0, 192, 0},
                                      {128, 128, 255}, {255, 255, 0},   {192, 192, 192}};
    for (std::int16_t index = 1; index <= 6; ++index) {
        const auto display = DisplayColor(index);
        const Color back = backs[static_cast<std::size_t>(index - 1)];
        EXPECT_EQ(display->backColor(), back) << index;
        EXPECT_EQ(display->lblNoteText.backColor(), back) << index;
        EXPECT_EQ(display->lblNoteText.foreColor(), index == 4 ? forms::white : forms::black);
    }
}

TEST_F(frmDisplayNoteTest, KeepsItsDesignColorsForAnyOtherIndex) {
    Start([] { forms::Default<frmDisplayNote>(); });
    for (const std::int16_t index : std::vector<std::int16_t>{0, 7, -1, 32767}) {
        const auto display = DisplayColor(index);
        EXPECT_EQ(display->backColor(), forms::Default<frmDisplayNote>().backColor());
        EXPECT_EQ(display->lblNoteText.backColor(),
                  forms::Default<frmDisplayNote>().lblNoteText.backColor());
    }
}

TEST_F(frmDisplayNoteTest, TakesTheFontSizeOfTheNoteIfItIsOneOfTheFour) {
    for (const std::int16_t size : std::vector<std::int16_t>{10, 12, 14, 16}) {
        Fill(Note("Dentist").InPoints(size));
        EXPECT_EQ(Display()->lblNoteText.fontSize(), size);
    }
    for (const std::int16_t size : std::vector<std::int16_t>{0, 8, 11, 18, -12}) {
        Fill(Note("Dentist").InPoints(size));
        EXPECT_EQ(Display()->lblNoteText.fontSize(), 12) << size;
    }
}

TEST_F(frmDisplayNoteTest, IsTopMostOnlyIfTheSettingSaysSo) {
    Fill(Note("Dentist"));
    EXPECT_FALSE(Display()->IsTopMost());
    EXPECT_EQ(Shared().WindowOnTopFlag, 0);
    Option("WindowOnTop", "1");
    EXPECT_TRUE(Display()->IsTopMost());
    EXPECT_EQ(Shared().WindowOnTopFlag, 1);
    Option("WindowOnTop", "2");
    EXPECT_FALSE(Display()->IsTopMost());
    EXPECT_EQ(Shared().WindowOnTopFlag, 2);
}

TEST_F(frmDisplayNoteTest, ASettingThatIsNoNumberIsNotTrapped) {
    Fill(Note("Dentist"));
    Option("WindowOnTop", "yes");
    ExpectRunTimeError(13, "Type mismatch");
    Start([] { StandardCode::DisplayNote(1); });
}

TEST_F(frmDisplayNoteTest, OpeningItDoesNotStartTheSound) {
    Fill(Note("Dentist").WithSound());
    const auto display = Display();
    EXPECT_FALSE(display->tmrSoundAlarm.enabled());
    Advance(5000);
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmDisplayNoteTest, EachDueNoteHasItsOwnWindow) {
    Fill(Note("One"));
    Fill(Note("Two"), 2);
    const auto one = Display(1);
    const auto two = Display(2);
    EXPECT_NE(one, two);
    EXPECT_TRUE(one->IsVisible());
    EXPECT_EQ(one->caption(), "One");
    EXPECT_EQ(two->caption(), "Two");
    user->CloseBox(*two);
    EXPECT_TRUE(one->IsVisible());
}

TEST_F(frmDisplayNoteTest, ASlotOutsideTheArrayIsAnError) {
    for (const int slot : {0, 101}) {
        Start([slot] {
            try {
                StandardCode::DisplayNote(slot);
                ADD_FAILURE() << slot;
            } catch (const base::RuntimeError& error) {
                EXPECT_EQ(error.number(), 9);
            }
        });
    }
}

TEST_F(frmDisplayNoteTest, ItsTextFollowsTheSizeOfTheWindow) {
    Fill(Note("Dentist"));
    const auto display = Display();
    user->Size(*display, 9000, 6000);
    EXPECT_EQ(display->lblNoteText.width(), display->ScaleWidth() - 2 * Grid::margin);
    EXPECT_EQ(display->lblNoteText.top() + display->lblNoteText.height(),
              display->ScaleHeight() - Grid::margin);
    EXPECT_EQ(display->Line1[0].width(), display->ScaleWidth() - 2 * Grid::margin);
    EXPECT_EQ(display->Line1[1].width(), display->ScaleWidth() - 2 * Grid::margin);
}

TEST_F(frmDisplayNoteTest, PlaysTheSoundOnceWithoutABox) {
    for (const auto& setting : {std::optional<std::string>(), std::optional<std::string>("0"),
                                std::optional<std::string>("2")}) {
        sound.log.clear();
        if (setting) {
            Option("NoteLoops", *setting);
        }
        Fill(Note("Dentist").WithSound());
        const auto display = Display();
        SwitchSoundOn(*display);
        Advance(999);
        EXPECT_TRUE(sound.log.empty());
        Advance(1);
        ASSERT_EQ(sound.log.size(), 1u);
        EXPECT_EQ(sound.log[0].kind, RecordedSound::Kind::Once);
        EXPECT_EQ(sound.log[0].path, buzzer);
        EXPECT_FALSE(display->tmrSoundAlarm.enabled());
        EXPECT_FALSE(Shared().AlarmSounding);
        Advance(10000);
        EXPECT_EQ(sound.log.size(), 1u);
    }
}

TEST_F(frmDisplayNoteTest, LoopsTheSoundUntilItsBoxIsAnswered) {
    Option("NoteLoops", "1");
    Fill(Note("Dentist").WithSound());
    const auto display = Display();
    SwitchSoundOn(*display);
    // The clock of the main window clears the flag at its next tick.
    Shared().AlarmSounding = false;
    ExpectDisplayAlarm([&] {
        ASSERT_EQ(sound.log.size(), 1u);
        EXPECT_EQ(sound.log[0].kind, RecordedSound::Kind::Loop);
        EXPECT_EQ(sound.log[0].path, buzzer);
        EXPECT_TRUE(Shared().AlarmSounding);
        Advance(60000);
        EXPECT_TRUE(Shared().AlarmSounding);
        EXPECT_TRUE(Bell::IsRinging());
        EXPECT_EQ(sound.log.size(), 1u);
    });
    Advance(1000);
    ASSERT_EQ(sound.log.size(), 2u);
    EXPECT_EQ(sound.log[1].kind, RecordedSound::Kind::Stop);
    EXPECT_FALSE(display->tmrSoundAlarm.enabled());
    EXPECT_FALSE(Shared().AlarmSounding);
    EXPECT_FALSE(Bell::IsRinging());
    Advance(10000);
    EXPECT_EQ(sound.log.size(), 2u);
}

TEST_F(frmDisplayNoteTest, IsSilentIfAnotherAlarmHasBegunToRing) {
    for (const char* loops : {"0", "1"}) {
        Option("NoteLoops", loops);
        Fill(Note("Dentist").WithSound());
        const auto display = Display();
        SwitchSoundOn(*display);
        sound.log.clear();
        ExpectMessage("now", "Jotwright Daily Alarm", BoxIcon::None, [&] {
            Advance(5000);
            EXPECT_FALSE(display->tmrSoundAlarm.enabled());
            EXPECT_EQ(sound.log.size(), 1u);
            EXPECT_EQ(sound.PlayingPath(), "C:\\other.wav");
            EXPECT_TRUE(Shared().AlarmSounding);
        });
        Start([] { Bell::RingBehindBox("C:\\other.wav", "now", {}, "Jotwright Daily Alarm"); });
        Advance(5000);
        EXPECT_EQ(sound.log.size(), 2u);
        EXPECT_FALSE(sound.IsPlaying());
    }
}

TEST_F(frmDisplayNoteTest, ASoundChosenAfterOpeningIsPlayed) {
    Fill(Note("Dentist").WithSound());
    const auto display = Display();
    SwitchSoundOn(*display);
    Shared().AlarmSoundPath = "D:\\other.wav";
    Advance(1000);
    EXPECT_EQ(sound.log.at(0).path, "D:\\other.wav");
}

TEST_F(frmDisplayNoteTest, AClosedDisplayPlaysNothing) {
    Fill(Note("Dentist").WithSound());
    const auto display = Display();
    SwitchSoundOn(*display);
    user->CloseBox(*display);
    Advance(5000);
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmDisplayNoteTest, TheRightButtonOpensItsMenu) {
    Fill(Note("Dentist"));
    const auto display = Display();
    EXPECT_TRUE(display->mnuSep.IsSeparator());
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(*display);
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(display->lblJotwright);
    ASSERT_EQ(stage->Popups().size(), 2u);
    EXPECT_EQ(stage->Popups()[0].captions,
              (std::vector<std::string>{"Print Note", "Erase Note", "-", "Close"}));
    EXPECT_FALSE(display->mnuPop.inMenuBar);
    // No other button opens the menu.
    forms::gestures::MouseUp(*display, forms::leftButton, 100, 100);
    forms::gestures::MouseUp(display->lblJotwright, forms::leftButton, 100, 100);
    forms::gestures::MouseUp(display->lblJotwright, forms::middleButton, 100, 100);
    EXPECT_EQ(stage->Popups().size(), 2u);
}

TEST_F(frmDisplayNoteTest, PrintsTheTextThatItShows) {
    Fill(Note("Dentist", "call"));
    const auto display = Display();
    user->Type(display->lblNoteText, "call\r\n\r\nask");
    stage->ExpectPopup("mnuPop", "mnuPrint");
    user->RightClick(*display);
    ASSERT_EQ(printer.documents.size(), 1u);
    EXPECT_TRUE(printer.documents[0].ended);
    const auto& lines = printer.documents[0].lines;
    const std::vector<std::string> texts{"", "", "Note Title: Dentist", "", "call\r\n\r\nask"};
    ASSERT_EQ(lines.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(lines[i].text, texts[i]) << i;
        EXPECT_EQ(lines[i].fontSize, i < 2 ? 0 : 12) << i;
    }
    EXPECT_TRUE(display->IsVisible());
}

TEST_F(frmDisplayNoteTest, ReportsAFailingPrinter) {
    Fill(Note("Dentist", "call"));
    const auto display = Display();
    printer.FailAt(1);
    stage->ExpectPopup("mnuPop", "mnuPrint");
    ExpectPrintError();
    user->RightClick(*display);
    EXPECT_TRUE(display->IsVisible());
}

}  // namespace
