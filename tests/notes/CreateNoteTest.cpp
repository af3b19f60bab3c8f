#include "notes/CreateNote.h"
#include "tests/support/NoteProgram.h"

namespace {

using forms::Color;

class CreateNoteTest : public testing_support::NoteProgram {
  protected:
    frmNote& CreateWith(const std::string& key, const std::string& value) {
        settings.values[{"Options", key}] = value;
        const std::string title = key + " " + value;
        Start([&title] { StandardCode::CreateNote(title); });
        return Editor(title);
    }
};

TEST_F(CreateNoteTest, OpensAnEmptyWhiteNoteReadyToType) {
    Start([] { StandardCode::CreateNote(" Dentist "); });
    frmNote& note = Editor(" Dentist ");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_FALSE(note.IsModal());
    EXPECT_EQ(note.windowState(), forms::WindowState::Normal);
    EXPECT_TRUE(note.txtNote.HasFocus());
    EXPECT_EQ(note.txtNote.text(), "");
    EXPECT_EQ(note.txtNote.backColor(), (Color{255, 255, 255}));
    EXPECT_EQ(note.txtNote.fontSize(), 12);
    EXPECT_TRUE(note.mnu12.checked());
    EXPECT_EQ(StandardCode::NoteTitles(), std::vector<std::string>{" Dentist "});
    EXPECT_FALSE(FileOf(" Dentist ").has_value());
}

struct DefaultColorCase {
    const char* code;
    Color back;
    Color text;
    const char* item;
};

TEST_F(CreateNoteTest, TakesTheDefaultColor) {
    const std::vector<DefaultColorCase> cases{
        {"0", {255, 255, 255}, {0, 0, 0}, "White"}, {"1", {255, 128, 128}, {0, 0, 0}, "Red"},
        {"2", {0, 192, 0}, {0, 0, 0}, "Green"},     {"3", {128, 128, 255}, {255, 255, 255}, "Blue"},
        {"4", {255, 255, 0}, {0, 0, 0}, "Yellow"},  {"5", {192, 192, 192}, {0, 0, 0}, "Gray"},
        {"7", {192, 192, 192}, {0, 0, 0}, "Gray"},  {"-1", {192, 192, 192}, {0, 0, 0}, "Gray"},
    };
    for (const DefaultColorCase& one : cases) {
        frmNote& note = CreateWith("DefaultColor", one.code);
        EXPECT_EQ(note.txtNote.backColor(), one.back) << one.code;
        EXPECT_EQ(note.txtNote.foreColor(), one.text) << one.code;
        for (const forms::Menu* entry : note.mnuColor.entries) {
            EXPECT_EQ(entry->checked(), entry->caption() == one.item) << one.code;
        }
    }
}

struct DefaultFontCase {
    const char* code;
    int points;
    const char* item;
};

TEST_F(CreateNoteTest, TakesTheDefaultFontSizeByItsPlaceInTheMenu) {
    const std::vector<DefaultFontCase> cases{
        {"0", 10, "10 point"},  {"1", 12, "12 point"},  {"2", 14, "14 point"},
        {"3", 16, "16 point"},  {"12", 12, "12 point"}, {"16", 12, "12 point"},
        {"-1", 12, "12 point"},
    };
    for (const DefaultFontCase& one : cases) {
        frmNote& note = CreateWith("DefaultFontSize", one.code);
        EXPECT_EQ(note.txtNote.fontSize(), one.points) << one.code;
        for (const forms::Menu* entry : note.mnuFont.entries) {
            EXPECT_EQ(entry->checked(), entry->caption() == one.item) << one.code;
        }
    }
}

TEST_F(CreateNoteTest, ASettingThatIsNoNumberLeavesNoUnfinishedNote) {
    for (const char* key : {"DefaultColor", "DefaultFontSize", "ShowDateTime"}) {
        settings.values.clear();
        settings.values[{"Options", key}] = "blue";
        Start([key] {
            try {
                StandardCode::CreateNote("Dentist");
                ADD_FAILURE() << key;
            } catch (const base::RuntimeError& error) {
                EXPECT_EQ(error.number(), 13) << key;
            }
        });
        EXPECT_FALSE(testing_support::IsNoteOpen("Dentist")) << key;
        EXPECT_TRUE(runtime->LoadedForms().empty()) << key;
    }
    EXPECT_TRUE(StandardCode::NoteTitles().empty());
}

TEST_F(CreateNoteTest, TwoNotesWithTheSameTitleCanBeOpen) {
    Start([] {
        StandardCode::CreateNote("Twin");
        StandardCode::CreateNote("Twin");
    });
    EXPECT_EQ(runtime->LoadedForms().size(), 2U);
}

}  // namespace
