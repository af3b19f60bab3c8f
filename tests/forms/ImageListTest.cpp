#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/ImageList.h"
#include "tests/support/TestProgram.h"

namespace {

class frmPictures : public forms::Form {
  public:
    frmPictures() : Form("frmPictures") {}
    forms::ImageList ilsMain{this, "ilsMain"};
    forms::ListView lvwMain{this, "lvwMain"};

    void Design() override {
        ilsMain.images = {{"on", "lamp_on"}, {"off", "lamp_off"}};
        lvwMain.columns = {{" ", 300, "image"}, {"Lamp", 900, "lamp"}};
        lvwMain.imageList = &ilsMain;
    }
};

class ImageListTest : public testing_support::TestProgram {
  protected:
    frmPictures& Window() { return forms::Default<frmPictures>(); }
};

TEST_F(ImageListTest, FindsPicturesByKey) {
    const forms::ImageList& list = Window().ilsMain;
    EXPECT_STREQ(list.name, "ilsMain");
    EXPECT_EQ(&list.form, &Window());
    EXPECT_EQ(list.IndexOf("on"), 0);
    EXPECT_EQ(list.IndexOf("off"), 1);
    EXPECT_EQ(list.ResourceOf("off"), "lamp_off");
    EXPECT_EQ(list.ResourceOf("Off"), "");
    EXPECT_THROW(list.IndexOf("Off"), base::RuntimeError);
}

TEST_F(ImageListTest, ARowsTextsGoByTheKeysOfTheColumns) {
    forms::ListView::Row row;
    Window().lvwMain.SetText(row, "lamp", "left");
    EXPECT_EQ(row.texts, (std::vector<std::string>{"", "left"}));
    EXPECT_THROW(Window().lvwMain.SetText(row, "Lamp", "right"), base::RuntimeError);
}

}  // namespace
