#include <algorithm>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

struct Rejection {
    const char* title;
    const char* picture;
    const char* caption;
    const char* text;
    bool keepsTitle = false;
};

// One title for each picture. TitleRulesTest has all rules.
constexpr Rejection rejections[]{
    {"2004", "letters.gif", " Note Title Error",
     "Note titles can't contain numeric characters only.\r\n Please add a couple of letters.",
     true},
    {"", "mascot_error.gif", "  Note Title Error", "Please Enter A Title For Your Note.\r\n"},
    {"a/b", "no_Fslash.gif", "  Note Title Error", "Note titles can't contain a forwardslash."},
    {"Shopping", "error.gif", "Name Already Exists",
     "A note with this title already exits.\r\n\r\nPlease choose another title for your new note."},
};

// The place of the picture in its box, and the size of all pictures, in pixels.
constexpr POINT picturePlace{8, 23};
constexpr int pictureSize = 72;

}  // namespace

class TitlesTest : public DriverTest {
  protected:
    // Clicks Make Note and returns the box that rejects the title.
    Window Reject(const Window& main, const Rejection& rejection);
    bool ShowsPicture(const Window& box, const std::string& name) const;
};

Window TitlesTest::Reject(const Window& main, const Rejection& rejection) {
    main.Only("Edit").Type(rejection.title);
    main.Button("Make &Note").Click();
    const Window box = program.WaitFor(rejection.caption);
    EXPECT_TRUE(box.FindChild("Static", rejection.text)) << rejection.title;
    EXPECT_FALSE(main.IsEnabled());
    return box;
}

bool TitlesTest::ShowsPicture(const Window& box, const std::string& name) const {
    return ComesTrue([&] {
        const Picture shown(box);
        const POINT origin = box.ClientOrigin();
        const RECT place = box.Place();
        return shown.Shows(
            folder + '\\' + name,
            {origin.x - place.left + picturePlace.x, origin.y - place.top + picturePlace.y},
            pictureSize);
    });
}

TEST_F(TitlesTest, InvalidTitlesAreRejectedWithAPicture) {
    WriteNote("Shopping", "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window title = main.Only("Edit");
    for (const Rejection& rejection : rejections) {
        const Window box = Reject(main, rejection);
        EXPECT_TRUE(ShowsPicture(box, rejection.picture)) << rejection.title;
        // The box fits the picture and the text.
        const RECT text = box.Child("Static", rejection.text).Place();
        const RECT place = box.Place();
        EXPECT_NEAR(place.bottom - place.top, pictureSize + 1300 / 15, 1);
        EXPECT_NEAR(place.right - place.left, text.right - text.left + pictureSize + 600 / 15, 1);
        box.Button("OK").Click();
        program.WaitUntilGone(rejection.caption);
        WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
        if (rejection.keepsTitle) {
            EXPECT_EQ(title.Text(), rejection.title);
        } else {
            EXPECT_TRUE(ComesTrue([&] { return title.Text().empty() && title.HasFocus(); }))
                << rejection.title;
        }
    }
    // Blanks open no box. A box would disable the main window.
    title.Type("   ");
    main.Button("Make &Note").Click();
    WaitUntil("the title box is emptied", [&] { return title.Text().empty(); });
    EXPECT_TRUE(ComesTrue([&] { return title.HasFocus(); }));
    EXPECT_TRUE(main.IsEnabled());
    EXPECT_EQ(FileNames(folder + "\\Notes").size(), 1U);
}

TEST_F(TitlesTest, TitlesThatDifferOnlyInCaseShareOneFile) {
    WriteNote("Shopping", "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    HideNote(MakeNote(main, "shopping"));
    EXPECT_TRUE(ComesTrue([&] {
        return WholeFile(NotePath("Shopping")).value_or("").starts_with("\"shopping\",\"\"");
    }));
    const auto names = FileNames(folder + "\\Notes");
    EXPECT_EQ(std::count_if(names.begin(), names.end(),
                            [](const std::string& name) { return name.ends_with(".txt"); }),
              1);
}

}  // namespace driver
