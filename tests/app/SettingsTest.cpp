#include <gtest/gtest.h>

#include "app/Settings.h"
#include "tests/support/RuleDevices.h"

namespace {

using testing_support::ErrorOf;
using testing_support::RuleDevices;

class SettingsTest : public testing::Test, protected RuleDevices {};

TEST_F(SettingsTest, AbsentKeyGivesTheCallersDefault) {
    EXPECT_EQ(Settings::Read("Config", "Alarm", ""), "");
    EXPECT_EQ(Settings::Read("Config", "Alarm", "C:\\a.wav"), "C:\\a.wav");
    EXPECT_EQ(Settings::Read("Options", "DefaultFontSize", 12), "12");
    EXPECT_EQ(Settings::ReadInteger("Options", "DefaultFontSize", 12), 12);
    EXPECT_TRUE(settings.values.empty());
}

TEST_F(SettingsTest, WrittenValueComesBackAsText) {
    Settings::Write("Options", "DefaultColor", 3);
    EXPECT_EQ(settings.Read("Options", "DefaultColor"), "3");
    EXPECT_EQ(Settings::Read("Options", "DefaultColor", 0), "3");
    EXPECT_EQ(Settings::ReadInteger("Options", "DefaultColor", 0), 3);
    Settings::Write("Config", "Alarm", "C:\\a b.wav");
    EXPECT_EQ(Settings::Read("Config", "Alarm", ""), "C:\\a b.wav");
}

TEST_F(SettingsTest, EmptyValueIsNoAbsentKey) {
    Settings::Write("Config", "Alarm", "");
    EXPECT_EQ(Settings::Read("Config", "Alarm", "default"), "");
}

TEST_F(SettingsTest, ValueThatIsNoNumberIsATypeMismatch) {
    settings.values[{"Options", "WindowOnTop"}] = "yes";
    EXPECT_EQ(ErrorOf([] { Settings::ReadInteger("Options", "WindowOnTop", 0); }), 13);
    settings.values[{"Options", "WindowOnTop"}] = "";
    EXPECT_EQ(ErrorOf([] { Settings::ReadInteger("Options", "WindowOnTop", 0); }), 13);
    settings.values[{"Options", "WindowOnTop"}] = "40000";
    EXPECT_EQ(Settings::ReadInteger("Options", "WindowOnTop", 0), 32767);
    settings.values[{"Options", "WindowOnTop"}] = " -1e400";
    EXPECT_EQ(Settings::ReadInteger("Options", "WindowOnTop", 0), -32768);
}

TEST_F(SettingsTest, NamesInTheStore) {
    EXPECT_STREQ(Settings::Options::section, "Options");
    EXPECT_STREQ(Settings::Options::defaultColor, "DefaultColor");
    EXPECT_STREQ(Settings::Options::defaultFontSize, "DefaultFontSize");
    EXPECT_STREQ(Settings::Options::windowOnTop, "WindowOnTop");
    EXPECT_STREQ(Settings::Options::startCookoo, "StartCookoo");
    EXPECT_STREQ(Settings::Options::showDateTime, "ShowDateTime");
    EXPECT_STREQ(Settings::Options::noteLoops, "NoteLoops");
    EXPECT_STREQ(Settings::Options::isService, "IsService");
    EXPECT_STREQ(Settings::Config::section, "Config");
    EXPECT_STREQ(Settings::Config::alarm, "Alarm");
    EXPECT_STREQ(Settings::Startup::section, "Startup");
    EXPECT_STREQ(Settings::Startup::viewTips, "View Tips");
}

}  // namespace
