#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// The colours and font sizes of an editor's text.

namespace {

using forms::Color;
using Texts = std::vector<std::string>;

class NoteStyleTest : public testing_support::NoteProgram {
  protected:
    static Texts Checked(const forms::Menu& menu) {
        Texts captions;
        for (const forms::Menu* entry : menu.entries) {
            if (entry->checked()) {
                captions.push_back(entry->caption);
            }
        }
        return captions;
    }
};

TEST_F(NoteStyleTest, ANewNoteIsWhiteAndInTwelvePoints) {
    frmNote& note = forms::Default<frmNote>();
    EXPECT_EQ(note.txtNote.backColor(), (Color{255, 255, 255}));
    EXPECT_EQ(note.txtNote.foreColor(), (Color{0, 0, 0}));
    EXPECT_EQ(note.txtNote.fontSize(), 12);
    EXPECT_EQ(Checked(note.mnuColor), Texts{"White"});
    EXPECT_EQ(Checked(note.mnuFont), Texts{"12 point"});
}

struct ColorCase {
    int index;
    const char* caption;
    Color back;
    Color text;
};

TEST_F(NoteStyleTest, AColorItemIsAppliedCheckedAndSaved) {
    const std::vector<ColorCase> cases{
        {2, "Red", {255, 128, 128}, {0, 0, 0}},        {3, "Green", {0, 192, 0}, {0, 0, 0}},
        {4, "Blue", {128, 128, 255}, {255, 255, 255}}, {5, "Yellow", {255, 255, 0}, {0, 0, 0}},
        {6, "Gray", {192, 192, 192}, {0, 0, 0}},       {1, "White", {255, 255, 255}, {0, 0, 0}},
    };
    frmNote& note = MakeNote("Dentist");
    for (const ColorCase& one : cases) {
        stage->ExpectPopup("mnuPop", one.caption);
        user->RightClick(note.txtNote);
        EXPECT_EQ(note.txtNote.backColor(), one.back) << one.caption;
        EXPECT_EQ(note.txtNote.foreColor(), one.text) << one.caption;
        EXPECT_EQ(Checked(note.mnuColor), Texts{one.caption});
        Start([&note] { note.WriteNote(); });
        EXPECT_EQ(Saved("Dentist").ColorIndex, one.index) << one.caption;
    }
}

TEST_F(NoteStyleTest, AFontItemIsAppliedCheckedAndSaved) {
    frmNote& note = MakeNote("Dentist");
    for (const int points : {10, 14, 16, 12}) {
        const std::string item = std::to_string(points) + " point";
        stage->ExpectPopup("mnuPop", item);
        user->RightClick(note.txtNote);
        EXPECT_EQ(note.txtNote.fontSize(), points);
        EXPECT_EQ(Checked(note.mnuFont), Texts{item});
        Start([&note] { note.WriteNote(); });
        EXPECT_EQ(Saved("Dentist").FontSize, points);
    }
}

TEST_F(NoteStyleTest, AnyOtherFontSizeIsSavedAsSixteen) {
    frmNote& note = MakeNote("Dentist");
    Start([&note] {
        note.txtNote.fontSize = 11;
        note.WriteNote();
    });
    EXPECT_EQ(Saved("Dentist").FontSize, 16);
}

}  // namespace
