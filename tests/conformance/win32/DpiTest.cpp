#include <gtest/gtest.h>

#include "forms/win32/Dpi.h"

namespace forms::win32 {

namespace {

TEST(DpiTest, ThePointerFindsEveryColumnOf96DpiAtEachScale) {
    for (const int dpi : {96, 120, 144, 168, 192, 216, 240, 288, 384}) {
        int before = -1;
        for (int pixel = 0; pixel < 600 * dpi / 96; ++pixel) {
            const int column = Scale{dpi}.PointerTwips(pixel) / 15;
            EXPECT_EQ(column, pixel * 96 / dpi) << dpi;
            EXPECT_LE(column - before, 1) << dpi;  // no column is skipped
            before = column;
        }
    }
    EXPECT_EQ(Scale{96}.PointerTwips(-1), -15);
}

}  // namespace

}  // namespace forms::win32
