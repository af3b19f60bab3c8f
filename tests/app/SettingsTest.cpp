#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "app/Settings.h"
#include "tests/support/RuleDevices.h"

namespace {

using testing_support::ErrorOf;
using testing_support::RuleDevices;

class SettingsTest : public testing::Test, protected RuleDevices {};

TEST_F(SettingsTest, AMissingValueIsZeroOrEmptyOrTheCurrentValue) {
    EXPECT_EQ(Settings::alarm.Read(), "");
    EXPECT_EQ(Settings::alarm.ReadOr("C:\\a.wav"), "C:\\a.wav");
    EXPECT_EQ(Settings::defaultFontSize.Read(), 0);
    EXPECT_EQ(Settings::defaultFontSize.ReadOr(12), 12);
    EXPECT_TRUE(settings.values.empty());
}

TEST_F(SettingsTest, ValuesAreStoredAsText) {
    Settings::defaultColor.Write(3);
    EXPECT_EQ(settings.Read("Options", "DefaultColor"), "3");
    EXPECT_EQ(Settings::defaultColor.Read(), 3);
    Settings::alarm.Write("C:\\a b.wav");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "C:\\a b.wav");
    EXPECT_EQ(Settings::alarm.Read(), "C:\\a b.wav");
}

TEST_F(SettingsTest, AnEmptyValueIsNotMissing) {
    Settings::alarm.Write("");
    EXPECT_EQ(Settings::alarm.ReadOr("current"), "");
}

TEST_F(SettingsTest, AValueThatIsNoNumberIsATypeMismatch) {
    settings.values[{"Options", "WindowOnTop"}] = "yes";
    EXPECT_EQ(ErrorOf([] { Settings::windowOnTop.Read(); }), 13);
    settings.values[{"Options", "WindowOnTop"}] = "";
    EXPECT_EQ(ErrorOf([] { Settings::windowOnTop.Read(); }), 13);
    settings.values[{"Options", "WindowOnTop"}] = "40000";
    EXPECT_EQ(Settings::windowOnTop.Read(), 32767);
    settings.values[{"Options", "WindowOnTop"}] = " -1e400";
    EXPECT_EQ(Settings::windowOnTop.Read(), -32768);
}

TEST_F(SettingsTest, EachSettingHasItsNameInTheStore) {
    using Name = std::pair<std::string, std::string>;
    const auto nameOf = [](const auto& setting) { return Name(setting.section, setting.key); };
    EXPECT_EQ(nameOf(Settings::defaultColor), Name("Options", "DefaultColor"));
    EXPECT_EQ(nameOf(Settings::defaultFontSize), Name("Options", "DefaultFontSize"));
    EXPECT_EQ(nameOf(Settings::windowOnTop), Name("Options", "WindowOnTop"));
    EXPECT_EQ(nameOf(Settings::startCookoo), Name("Options", "StartCookoo"));
    EXPECT_EQ(nameOf(Settings::showDateTime), Name("Options", "ShowDateTime"));
    EXPECT_EQ(nameOf(Settings::noteLoops), Name("Options", "NoteLoops"));
    EXPECT_EQ(nameOf(Settings::isService), Name("Options", "IsService"));
    EXPECT_EQ(nameOf(Settings::alarm), Name("Config", "Alarm"));
    EXPECT_EQ(nameOf(Settings::viewTips), Name("Startup", "View Tips"));
}

}  // namespace
