#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "app/Grid.h"
#include "app/dlgMsgBox.h"
#include "tests/support/TestProgram.h"

namespace {

class dlgMsgBoxTest : public testing_support::TestProgram {
  protected:
    // Shows the box, runs the script, and closes the box if it is still open.
    void Show(const std::string& message, const std::string& caption, const std::string& picture,
              const std::function<void(dlgMsgBox&)>& script) {
        stage->ExpectModal<dlgMsgBox>([&](dlgMsgBox& dialog) {
            script(dialog);
            if (dialog.IsLoaded()) {
                user->Click(dialog.cmdOk);
            }
        });
        Start([&] { StandardCode::PictureMessageBox(message, caption, picture); });
        EXPECT_FALSE(forms::LoadedDefault<dlgMsgBox>());
    }

    void GivePicture(const std::string& name, int width, int height) {
        pictures.sizes["C:\\Jotwright\\" + name] = {width, height};
    }
};

TEST_F(dlgMsgBoxTest, DesignCaptions) {
    EXPECT_EQ(forms::Default<dlgMsgBox>().caption(), "Dialog Caption");
    EXPECT_EQ(forms::Default<dlgMsgBox>().cmdOk.caption(), "OK");
}

TEST_F(dlgMsgBoxTest, WithoutAPictureTheBoxIsSizedToItsText) {
    Show("A message", "Caption", "", [](dlgMsgBox& dialog) {
        const int textWidth = dialog.lblMsg.width;
        const int textHeight = dialog.lblMsg.height;
        EXPECT_GT(textWidth, 0);
        EXPECT_EQ(dialog.lblMsg.fontSize(), 10);
        EXPECT_EQ(dialog.lblMsg.left(), 200);
        EXPECT_EQ(dialog.lblMsg.top(), 350);
        EXPECT_EQ(dialog.height(), textHeight + 1300);
        EXPECT_EQ(dialog.width(), textWidth + 600);
        EXPECT_EQ(dialog.cmdOk.top(), dialog.height() - 800);
        EXPECT_EQ(dialog.cmdOk.left(), dialog.width() - 1300);
        EXPECT_TRUE(dialog.imgMsg.picture().path.empty());
        EXPECT_FALSE(dialog.imgMsg.visible());
    });
}

TEST_F(dlgMsgBoxTest, ATextLowerThanThePictureStandsBesideIt) {
    GivePicture("error.gif", 1080, 900);
    Show("A message", "Caption", "error.gif", [](dlgMsgBox& dialog) {
        EXPECT_EQ(dialog.imgMsg.picture().path, "C:\\Jotwright\\error.gif");
        EXPECT_TRUE(dialog.imgMsg.visible());
        EXPECT_EQ(dialog.imgMsg.left(), 125);
        EXPECT_EQ(dialog.imgMsg.top(), 350);
        EXPECT_EQ(dialog.lblMsg.top(), 450);
        EXPECT_EQ(dialog.lblMsg.left(), 1080 + 125 + 200);
        EXPECT_EQ(dialog.height(), 900 + 1300);
        EXPECT_EQ(dialog.width(), dialog.lblMsg.width() + 1080 + 600);
        EXPECT_EQ(dialog.cmdOk.top(), 900 + 400);
        EXPECT_EQ(dialog.cmdOk.left(), dialog.width() - 1100);
    });
}

TEST_F(dlgMsgBoxTest, ATextAsHighAsThePictureStandsBesideIt) {
    const int lineHeight = 300;  // at 10 points on this stage
    GivePicture("error.gif", 600, lineHeight);
    Show("A message", "Caption", "error.gif", [&](dlgMsgBox& dialog) {
        ASSERT_EQ(dialog.lblMsg.height(), lineHeight);
        EXPECT_EQ(dialog.lblMsg.top(), lineHeight / 2);
        EXPECT_EQ(dialog.height(), lineHeight + 1300);
    });
}

TEST_F(dlgMsgBoxTest, ATextHigherThanThePictureKeepsItsPlace) {
    GivePicture("error.gif", 1080, 480);
    forms::Default<dlgMsgBox>();
    const int designLeft = forms::Default<dlgMsgBox>().lblMsg.left;
    const int designTop = forms::Default<dlgMsgBox>().lblMsg.top;
    Show("1\r\n2\r\n3\r\n4", "Caption", "error.gif", [&](dlgMsgBox& dialog) {
        const int textHeight = dialog.lblMsg.height;
        ASSERT_GT(textHeight, 480);
        EXPECT_EQ(dialog.lblMsg.left(), designLeft);
        EXPECT_EQ(dialog.lblMsg.top(), designTop);
        EXPECT_EQ(dialog.height(), textHeight + 1200);
        EXPECT_EQ(dialog.width(), 1080 + dialog.lblMsg.width() + 1200);
        EXPECT_EQ(dialog.cmdOk.top(), textHeight + 400);
        EXPECT_EQ(dialog.cmdOk.left(), dialog.width() - 1100);
        EXPECT_GE(dialog.cmdOk.top(), designTop + textHeight + Grid::gap);
        // The text is beside the picture, not on it.
        EXPECT_GE(dialog.lblMsg.left(), 125 + 1080);
    });
}

TEST_F(dlgMsgBoxTest, LineBreaksGrowTheDialog) {
    int oneLine = 0;
    Show("one", "Caption", "", [&](dlgMsgBox& dialog) { oneLine = dialog.height; });
    Show("one\r\ntwo\r\nthree", "Caption", "",
         [&](dlgMsgBox& dialog) { EXPECT_EQ(dialog.height() - 1300, 3 * (oneLine - 1300)); });
}

TEST_F(dlgMsgBoxTest, CaptionAndMessageAreShownUnchanged) {
    Show("     Tom && Jerry & co.   ", "  Two Blanks  ", "", [](dlgMsgBox& dialog) {
        EXPECT_EQ(dialog.caption(), "  Two Blanks  ");
        EXPECT_EQ(dialog.lblMsg.caption(), "     Tom && Jerry & co.   ");
        EXPECT_FALSE(dialog.lblMsg.useMnemonic);
    });
}

TEST_F(dlgMsgBoxTest, AMissingMessageOrPictureIsReplacedInTheVariableOfTheCaller) {
    std::optional<std::string> message;
    std::optional<std::string> picture;
    stage->ExpectModal<dlgMsgBox>([&](dlgMsgBox& dialog) {
        EXPECT_EQ(dialog.lblMsg.caption(), "");
        EXPECT_TRUE(dialog.imgMsg.picture().path.empty());
        user->Click(dialog.cmdOk);
    });
    Start([&] { StandardCode::PictureMessageBox(message, "Caption", picture); });
    EXPECT_EQ(message, "");
    EXPECT_EQ(picture, "");
}

TEST_F(dlgMsgBoxTest, GivenTextsStayInTheVariablesOfTheCaller) {
    std::optional<std::string> message = "text";
    std::optional<std::string> picture = "error.gif";
    stage->ExpectModal<dlgMsgBox>([&](dlgMsgBox& dialog) { user->Click(dialog.cmdOk); });
    Start([&] { StandardCode::PictureMessageBox(message, "Caption", picture); });
    EXPECT_EQ(message, "text");
    EXPECT_EQ(picture, "error.gif");
}

TEST_F(dlgMsgBoxTest, AMissingPictureFileIsNotTrapped) {
    ExpectRunTimeError(53, "File not found");
    Start([] { StandardCode::PictureMessageBox("text", "Caption", "nowhere.gif"); });
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(dlgMsgBoxTest, EnterEscapeAndTheCloseBoxCloseIt) {
    Show("text", "Caption", "", [&](dlgMsgBox& dialog) {
        user->PressEnter();
        EXPECT_FALSE(dialog.IsLoaded());
    });
    Show("text", "Caption", "", [&](dlgMsgBox& dialog) {
        user->PressEscape();
        EXPECT_FALSE(dialog.IsLoaded());
    });
    Show("text", "Caption", "", [&](dlgMsgBox& dialog) {
        user->CloseBox(dialog);
        EXPECT_FALSE(dialog.IsLoaded());
    });
}

TEST_F(dlgMsgBoxTest, TheNextBoxKeepsNothingOfTheLastBox) {
    Show("text", "Caption", "error.gif", [](dlgMsgBox&) {});
    Show("text", "Caption", "", [](dlgMsgBox& dialog) {
        EXPECT_TRUE(dialog.imgMsg.picture().path.empty());
        EXPECT_FALSE(dialog.imgMsg.visible());
        EXPECT_EQ(dialog.lblMsg.left(), 200);
    });
}

TEST_F(dlgMsgBoxTest, TheButtonLiesInsideTheDialog) {
    GivePicture("error.gif", 1080, 1080);
    const auto check = [](dlgMsgBox& dialog) {
        EXPECT_LE(dialog.cmdOk.left() + dialog.cmdOk.width(), dialog.ScaleWidth() - 60);
        EXPECT_LE(dialog.cmdOk.top() + dialog.cmdOk.height(), dialog.height() - 420 - 30);
    };
    Show("text of the usual length", "Caption", "", check);
    Show("text of the usual length", "Caption", "error.gif", check);
    Show("1\r\n2\r\n3\r\n4\r\n5\r\n6", "Caption", "error.gif", check);
}

}  // namespace
