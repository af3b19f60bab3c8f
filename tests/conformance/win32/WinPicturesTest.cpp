#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinPictures.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

using testing_support::ErrorOf;

namespace {

std::string FromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    }
    return bytes;
}

}  // namespace

class WinPicturesTest : public testing::Test {
  protected:
    Picture LoadBytes(const std::string& name, const std::string& bytes) {
        files.Write(folder / name, bytes);
        return pictures.Load(folder / name);
    }

    const std::string gif6x7 = FromHex(
        "47494638396106000700f00000ff000000000021f90400000000002c0000000006000700000205848fa9cb5a00"
        "3"
        "b");
    const std::string png2x3 = FromHex(
        "89504e470d0a1a0a0000000d4948445200000002000000030802000000368849d6000000134944415408d763fc"
        "cfc0c0c0c0c0c4804c010014400105e2b7db360000000049454e44ae426082");
    const std::string jpg4x5 = FromHex(
        "ffd8ffe000104a46494600010100000100010000ffdb00430050373c463c32504641465a55505f78c882786e6e"
        "78f5afb991c8ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff"
        "c0000b080005000401011100ffc40014000100000000000000000000000000000000ffc4001410010000000000"
        "0000000000000000000000ffda0008010100003f003fffd9");
    const std::string bmp1x2 = FromHex(
        "424d3e000000000000003600000028000000010000000200000001001800000000000800000000000000000000"
        "0000000000000000000000ff000000ff0000");

    const TempFolder folder;
    WinFiles files;
    WinPictures pictures{files};
};

TEST_F(WinPicturesTest, SizesAreFifteenTwipsAPixel) {
    EXPECT_EQ(LoadBytes("a.gif", gif6x7), (Picture{folder / "a.gif", 90, 105}));
    EXPECT_EQ(LoadBytes("a.png", png2x3), (Picture{folder / "a.png", 30, 45}));
    EXPECT_EQ(LoadBytes("a.jpg", jpg4x5), (Picture{folder / "a.jpg", 60, 75}));
    EXPECT_EQ(LoadBytes("a.bmp", bmp1x2), (Picture{folder / "a.bmp", 15, 30}));
}

TEST_F(WinPicturesTest, IconsAreThirtyTwoPixelsSquare) {
    // One image, 1 by 1 pixel of 24 bits: header, entry, bitmap, colours, mask.
    const std::string icon = FromHex(
        "000001000100"
        "01010000010018003000000016000000"
        "28000000010000000200000001001800000000000800000000000000000000000000000000000000"
        "0000ff0000000000");
    EXPECT_EQ(LoadBytes("a.ico", icon), (Picture{folder / "a.ico", 480, 480}));
    EXPECT_EQ(ErrorOf([&] { LoadBytes("b.ico", icon.substr(0, 30)); }), 481);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("c.ico", icon.substr(0, 5)); }), 481);
}

TEST_F(WinPicturesTest, FilesThatAreNotPicturesRaiseAnError) {
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "missing.gif"); }), 53);
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "missing\\a.gif"); }), 53);
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder.Path()); }), 53);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("text.gif", "this is no picture"); }), 481);
    EXPECT_EQ(ErrorOf([&] { LoadBytes("empty.gif", ""); }), 481);
}

TEST_F(WinPicturesTest, AChangedFileIsLoadedAgain) {
    EXPECT_EQ(LoadBytes("a.gif", gif6x7).width, 90);
    EXPECT_EQ(pictures.Load(folder / "a.gif").width, 90);
    EXPECT_EQ(LoadBytes("a.gif", png2x3).width, 30);
    files.Delete(folder / "a.gif");
    EXPECT_EQ(ErrorOf([&] { pictures.Load(folder / "a.gif"); }), 53);
}

}  // namespace forms::win32
