#include <gtest/gtest.h>

#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "tests/support/TestProgram.h"

using namespace forms;

namespace {

class frmControls : public Form {
  public:
    frmControls() : Form("frmControls") {}
    Label lblSized{this, "lblSized"};
    TextBox txtText{this, "txtText"};
    CheckBox chkBox{this, "chkBox"};
    Frame fraFirst{this, "fraFirst"};
    OptionButton optA{this, "opt", 0};
    OptionButton optB{this, "opt", 1};
    OptionButton optC{this, "opt", 2};
    Frame fraSecond{this, "fraSecond"};
    OptionButton optOther{this, "optOther"};
    ComboBox cboList{this, "cboList"};
    ListBox lstList{this, "lstList"};
    ListView lvwRows{this, "lvwRows"};
    DateTimePicker dtpTime{this, "dtpTime"};
    Image imgPicture{this, "imgPicture"};
    Toolbar tlbTools{this, "tlbTools"};
    CommandButton cmdLast{this, "cmdLast"};

    void Design() override {
        for (OptionButton* option : {&optA, &optB, &optC}) {
            option->container = &fraFirst;
            option->Click = [this, option] { Note("opt" + std::to_string(option->index)); };
        }
        optOther.container = &fraSecond;
        optOther.Click = [this] { Note("other"); };
        txtText.Change = [this] { Note("change " + txtText.text()); };
        chkBox.Click = [this] { Note("check " + std::to_string(chkBox.value())); };
        cboList.items = {"one", "two", "three"};
        cboList.Click = [this] { Note("combo " + cboList.Text()); };
        lstList.items = std::vector<std::string>{"one", "two"};
        lstList.Click = [this] { Note("list " + std::to_string(lstList.listIndex())); };
        lvwRows.ItemClick = [this] { Note("row " + std::to_string(lvwRows.SelectedRow())); };
        dtpTime.Change = [this] { Note("picked " + base::FormatTime24(dtpTime.value)); };
        lblSized.autoSize = true;
        imgPicture.sizeToPicture = true;
    }

    std::vector<std::string> events;
    std::vector<std::string> Take() {
        std::vector<std::string> taken;
        taken.swap(events);
        return taken;
    }

  private:
    void Note(const std::string& event) { events.push_back(event); }
};

using Events = std::vector<std::string>;

class ControlsTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { Default<frmControls>().Show(); });
    }
    static frmControls& Form() { return Default<frmControls>(); }
    static ListView::Row Row(const std::string& key) { return {key, -1, {"text " + key}}; }
};

}  // namespace

TEST_F(ControlsTest, ATextAssignedByCodeRaisesChangeOnceAndOnlyWhenItDiffers) {
    Form().txtText.text = "abc";
    EXPECT_EQ(Form().Take(), Events{"change abc"});
    Form().txtText.text = "abc";
    EXPECT_EQ(Form().Take(), Events{});
}

TEST_F(ControlsTest, ATypedTextRaisesChangeAndIsFetchedWhenRead) {
    user->Type(Form().txtText, "typed");
    EXPECT_EQ(Form().Take(), Events{"change typed"});
    Form().txtText.text = "typed";
    EXPECT_EQ(Form().Take(), Events{});
}

TEST_F(ControlsTest, ACheckBoxRaisesClickForTheUserAndForCode) {
    Form().chkBox.value = 1;
    Form().chkBox.value = 1;
    EXPECT_EQ(Form().Take(), Events{"check 1"});
    Form().chkBox.value = 2;
    EXPECT_EQ(Form().Take(), Events{"check 2"});
    user->Click(Form().chkBox);
    user->Click(Form().chkBox);
    EXPECT_EQ(Form().Take(), (Events{"check 1", "check 0"}));
}

TEST_F(ControlsTest, ACheckBoxTakesZeroToTwoOnly) {
    for (const int wrong : {-1, 3, 65536}) {
        try {
            Form().chkBox.value = wrong;
            ADD_FAILURE() << wrong << " was taken";
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number(), 380);
        }
    }
    EXPECT_EQ(Form().chkBox.value(), 0);
    EXPECT_EQ(Form().Take(), Events{});
}

TEST_F(ControlsTest, AnOptionButtonRaisesClickWhenItIsSelectedAndTheLoserRaisesNothing) {
    Form().optA.value = true;
    user->Click(Form().optB);
    Form().optB.value = true;
    EXPECT_EQ(Form().Take(), (Events{"opt0", "opt1"}));
    EXPECT_FALSE(Form().optA.value());
    EXPECT_TRUE(Form().optB.value());
    Form().optB.value = false;
    EXPECT_EQ(Form().Take(), Events{});
}

TEST_F(ControlsTest, OnlyOptionButtonsOfOneContainerExcludeEachOther) {
    Form().optA.value = true;
    Form().optOther.value = true;
    EXPECT_TRUE(Form().optA.value());
    EXPECT_TRUE(Form().optOther.value());
}

TEST_F(ControlsTest, TheOthersAreOffWhenTheClickOfAnOptionButtonRuns) {
    Form().optA.value = true;
    bool otherWasOff = false;
    Form().optC.Click = [&otherWasOff] { otherWasOff = !Form().optA.value(); };
    Form().optC.value = true;
    EXPECT_TRUE(otherWasOff);
}

TEST_F(ControlsTest, AComboBoxRaisesClickWhenItsIndexChanges) {
    EXPECT_EQ(Form().cboList.Text(), "");
    Form().cboList.listIndex = 1;
    Form().cboList.listIndex = 1;
    EXPECT_EQ(Form().Take(), Events{"combo two"});
    user->Select(Form().cboList, "three");
    EXPECT_EQ(Form().Take(), Events{"combo three"});
    Form().lstList.listIndex = 1;
    EXPECT_EQ(Form().Take(), Events{"list 1"});
}

TEST_F(ControlsTest, APickerRaisesChangeForTheUserOnly) {
    Form().dtpTime.value = base::DateTime::FromTime(9, 30, 0);
    EXPECT_EQ(Form().Take(), Events{});
    user->Pick(Form().dtpTime, base::DateTime::FromTime(9, 30, 0));
    EXPECT_EQ(Form().Take(), Events{});
    user->Pick(Form().dtpTime, base::DateTime::FromTime(9, 31, 0));
    EXPECT_EQ(Form().Take(), Events{"picked 09:31:00"});
}

TEST_F(ControlsTest, RowsHaveUniqueKeysAndPlaces) {
    ListView& rows = Form().lvwRows;
    rows.AddRow(Row("b"));
    rows.InsertRow(0, Row("a"));
    rows.AddRow(Row(""));
    rows.AddRow(Row(""));
    EXPECT_EQ(rows.Rows()[0].key, "a");
    EXPECT_EQ(rows.Rows()[1].key, "b");
    try {
        rows.AddRow(Row("a"));
        ADD_FAILURE() << "a key was taken twice";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number(), 457);
    }
    EXPECT_THROW(rows.RemoveRow(4), base::RuntimeError);
    EXPECT_THROW(rows.InsertRow(5, Row("z")), base::RuntimeError);
    EXPECT_EQ(rows.Rows().size(), 4U);
    rows.RemoveRow(0);
    EXPECT_EQ(rows.Rows()[0].key, "b");
}

TEST_F(ControlsTest, TheSelectionFollowsItsRow) {
    ListView& rows = Form().lvwRows;
    for (const char* key : {"a", "b", "c"}) {
        rows.AddRow(Row(key));
    }
    rows.Select(1);
    EXPECT_EQ(Form().Take(), Events{});
    rows.InsertRow(0, Row("z"));
    EXPECT_EQ(rows.SelectedRow(), 2);
    rows.RemoveRow(3);
    EXPECT_EQ(rows.SelectedRow(), 2);
    rows.RemoveRow(0);
    EXPECT_EQ(rows.SelectedRow(), 1);
    rows.RemoveRow(1);
    EXPECT_EQ(rows.SelectedRow(), -1);
    user->Select(rows, 0);
    EXPECT_EQ(Form().Take(), Events{"row 0"});
    rows.Clear();
    EXPECT_EQ(rows.SelectedRow(), -1);
}

TEST_F(ControlsTest, ABatchOfRowsIsDrawnOnce) {
    ListView& rows = Form().lvwRows;
    const std::int64_t before = stage->ChangesShown();
    rows.BeginUpdate();
    for (int n = 0; n < 50; ++n) {
        rows.AddRow(Row(std::to_string(n)));
    }
    EXPECT_EQ(stage->ChangesShown(), before);
    rows.EndUpdate();
    EXPECT_EQ(stage->ChangesShown(), before + 1);
}

TEST_F(ControlsTest, ALabelTakesTheSizeOfItsText) {
    Form().lblSized.caption = "12345";
    EXPECT_EQ(Form().lblSized.width(), 450);
    EXPECT_EQ(Form().lblSized.height(), 240);
    Form().lblSized.fontSize = 16;
    EXPECT_EQ(Form().lblSized.width(), 900);
    Form().lblSized.caption = std::string("123") + base::lineBreak + "4";
    EXPECT_EQ(Form().lblSized.height(), 960);
}

TEST_F(ControlsTest, AnImageTakesTheSizeOfItsPicture) {
    Form().imgPicture.picture = Picture{"C:\\Jotwright\\mascot.jpg", 900, 600};
    EXPECT_EQ(Form().imgPicture.width(), 900);
    EXPECT_EQ(Form().imgPicture.height(), 600);
}

TEST_F(ControlsTest, AnEqualValueIsNotDrawnAgain) {
    Form().lblSized.caption = "same";
    const std::int64_t before = stage->ChangesShown();
    Form().lblSized.caption = "same";
    Form().cmdLast.enabled = true;
    EXPECT_EQ(stage->ChangesShown(), before);
}

TEST_F(ControlsTest, AContainerTakesItsControlsWithIt) {
    EXPECT_TRUE(gestures::CanUse(Form().optA));
    Form().fraFirst.enabled = false;
    EXPECT_FALSE(gestures::CanUse(Form().optA));
    EXPECT_TRUE(gestures::CanUse(Form().optOther));
    Form().fraFirst.enabled = true;
    Form().fraFirst.visible = false;
    EXPECT_FALSE(Form().optA.IsEffectivelyVisible());
    EXPECT_FALSE(gestures::CanUse(Form().optA));
}
