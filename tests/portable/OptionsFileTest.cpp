#include <gtest/gtest.h>

#include "app/Settings.h"
#include "portable/OptionsFile.h"

using portable::FormatOptions;
using portable::Options;
using portable::ParseOptions;

namespace {

const std::string folder = "E:\\My notes";

const std::pair<std::string, std::string> alarmSound{Settings::alarm.section, Settings::alarm.key};
const std::pair<std::string, std::string> color{Settings::defaultColor.section,
                                                Settings::defaultColor.key};

Options ReadBack(const std::string& value) {
    const auto parsed = ParseOptions(FormatOptions({{alarmSound, value}}, folder), folder);
    EXPECT_FALSE(parsed.isDamaged) << value;
    return parsed.options;
}

}  // namespace

TEST(OptionsFileTest, EveryValueIsReadBack) {
    for (const std::string value :
         {"", " ", "3", "=", ";", "%", "%25", "%FOLDER%", "%FOLDER%\\a", "a\r\nb", "\t\x7f", "é→😀",
          "C:\\a.wav", "E:\\My notes", "E:\\My notes\\", "E:\\My notes\\Bell alarm.wav",
          "E:\\My notes 2\\a.wav"}) {
        EXPECT_EQ(ReadBack(value).at(alarmSound), value);
    }
}

TEST(OptionsFileTest, AnEmptyFileHasNoOptions) {
    EXPECT_TRUE(ParseOptions("", folder).options.empty());
    EXPECT_FALSE(ParseOptions("", folder).isDamaged);
    EXPECT_FALSE(ParseOptions(FormatOptions({}, folder), folder).isDamaged);
}

TEST(OptionsFileTest, ASoundInTheFolderFollowsTheFolder) {
    const std::string bytes = FormatOptions({{alarmSound, folder + "\\Bell alarm.wav"}}, folder);
    EXPECT_EQ(ParseOptions(bytes, "F:\\Else").options.at(alarmSound), "F:\\Else\\Bell alarm.wav");
}

TEST(OptionsFileTest, NotepadMayHaveSavedIt) {
    const auto parsed = ParseOptions("\xEF\xBB\xBF; mine\n\nOptions\\DefaultColor=3", folder);
    EXPECT_FALSE(parsed.isDamaged);
    EXPECT_EQ(parsed.options, (Options{{color, "3"}}));
}

TEST(OptionsFileTest, DamagedLinesCostNoOthers) {
    for (const std::string line : {"nonsense", "=", "Options\\Unknown=1", "options\\DefaultColor=1",
                                   "Config\\Alarm=%2", "Config\\Alarm=%GG", "Config\\Alarm=%00",
                                   "Config\\Alarm=\xff", "Options\\DefaultColor=4"}) {
        const auto parsed = ParseOptions("Options\\DefaultColor=3\r\n" + line + "\r\n", folder);
        EXPECT_TRUE(parsed.isDamaged) << line;
        EXPECT_EQ(parsed.options, (Options{{color, "3"}})) << line;
    }
    EXPECT_TRUE(ParseOptions(std::string(1000, '\0'), folder).isDamaged);
}
