#include <gtest/gtest.h>

#include "alarms/SpecialAlarmsFile.h"
#include "app/Settings.h"
#include "notes/NoteFile.h"
#include "notes/TitleRules.h"
#include "tests/support/RuleDevices.h"

// Titles and settings are read in the number format of the user. Note files are the same
// everywhere.

namespace {

class NumberFormatTest : public testing::Test, public testing_support::RuleDevices {
  protected:
    void SetUp() override { locale.numbers = {",", ".", "\xe2\x82\xac"}; }
};

TEST_F(NumberFormatTest, ATitleThatIsANumberInThisFormatIsRefused) {
    for (const char* title : {"2,5", "1.000,5", "5 \xe2\x82\xac", "(5)", "5-"}) {
        EXPECT_FALSE(TitleRules::Check(title, false).IsAccepted()) << title;
        EXPECT_EQ(TitleRules::Check(title, false).picture, "letters.gif") << title;
    }
    EXPECT_TRUE(TitleRules::Check("$5", false).IsAccepted());
}

TEST_F(NumberFormatTest, SettingsAreReadInThisFormat) {
    settings.values[{"Options", "DefaultColor"}] = "3,5";
    EXPECT_EQ(Settings::defaultColor.Read(), 4);
}

TEST_F(NumberFormatTest, NoteFilesAreNotReadInThisFormat) {
    StandardCode::NoteRecord note;
    NoteFile::Decode("\"a\",\"text\",#2004-05-14#,#12:00:00#,\"1.4\",12,\"0\",0,\"yes\"\r\n", note);
    EXPECT_EQ(note.ColorIndex, 1);
}

}  // namespace
