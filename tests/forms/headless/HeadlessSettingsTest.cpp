#include <gtest/gtest.h>

#include "forms/headless/HeadlessSettings.h"

namespace forms::headless {

TEST(HeadlessSettingsTest, KeepsWrittenValues) {
    HeadlessSettings settings;
    EXPECT_EQ(settings.Read("Options", "DefaultColor"), std::nullopt);
    settings.Write("Options", "DefaultColor", "3");
    EXPECT_EQ(settings.Read("Options", "DefaultColor"), "3");
    EXPECT_EQ(settings.Read("Config", "DefaultColor"), std::nullopt);
}

}  // namespace forms::headless
