#include <ostream>

#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"

// Counts the calls of the disk and of the stage that each action of the user causes. The counts do
// not depend on the machine, so a change that adds calls to an action fails here. They must not
// depend on the number of notes either, unless a test says so.

namespace {

// Calls of the disk and of the stage.
struct Cost {
    int listings = 0;
    int reads = 0;
    int changes = 0;  // files written, replaced, renamed, deleted
    int looks = 0;    // questions whether a file exists
    int flushes = 0;
    int updates = 0;  // things that the stage had to show differently
    bool operator==(const Cost&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Cost& cost) {
    return out << cost.listings << " listings, " << cost.reads << " reads, " << cost.changes
               << " changes, " << cost.looks << " looks, " << cost.flushes << " flushes, "
               << cost.updates << " updates";
}

class ActionCostTest : public testing_support::WholeProgram,
                       public ::testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        for (int number = 1; number <= GetParam(); ++number) {
            PutNote(Note("Note " + std::to_string(1000 + number)));
        }
        if (GetParam() > StandardCode::maximumNotes) {
            ExpectTooMany();
            ExpectMaximumReached();
        }
        StartQuietly();
        Advance(200);  // if there are more notes than slots, they appear after the main window
    }

    // An action that rebuilds the array reports once that there are more files than slots.
    void ExpectTooMany() {
        if (GetParam() > StandardCode::maximumNotes) {
            ExpectNotesArrayError("Error Number: 9) - Subscript out of range");
        }
    }

    frmNote& First() { return Editor("Note 1001"); }
    frmViewNotes& Panel() { return forms::Default<frmViewNotes>(); }

    Cost CostOf(const std::function<void()>& action) {
        Cost cost{-files.Listings(), 0, 0, -files.Looks(), -files.Flushes(), -stage->Updates()};
        files.ClearLog();
        action();
        cost.listings += files.Listings();
        cost.looks += files.Looks();
        cost.flushes += files.Flushes();
        cost.updates += stage->Updates();
        for (const std::string& entry : files.Log()) {
            ++(entry.starts_with("read ") ? cost.reads : cost.changes);
        }
        return cost;
    }
};

class SmallActionCostTest : public ActionCostTest {};

INSTANTIATE_TEST_SUITE_P(Notes, SmallActionCostTest, ::testing::Values(1, 99));
INSTANTIATE_TEST_SUITE_P(Notes, ActionCostTest, ::testing::Values(1, 99, 300));

}  // namespace

TEST_P(SmallActionCostTest, MakingANote) {
    EXPECT_EQ(CostOf([&] { MakeNote("Dentist"); }), (Cost{.looks = 2, .updates = 5}));
}

TEST_P(ActionCostTest, OpeningARestoredNote) {
    EXPECT_EQ(CostOf([&] { user->Restore(First()); }), (Cost{}));
}

TEST_P(ActionCostTest, ChangingColorAndSize) {
    user->Restore(First());
    EXPECT_EQ(CostOf([&] { user->Type(First().txtNote, "k"); }), (Cost{}));
    for (const char* entry : {"Red", "16 point"}) {
        stage->ExpectPopup("mnuPop", entry);
        EXPECT_EQ(CostOf([&] { user->RightClick(First().txtNote); }), (Cost{.updates = 3}));
    }
}

TEST_P(ActionCostTest, HidingAChangedNote) {
    user->Restore(First());
    user->Type(First().txtNote, "changed");
    ExpectTooMany();
    EXPECT_EQ(
        CostOf([&] { user->Click(First().tlbMain, "Hide"); }),
        (Cost{.listings = 2, .reads = 2, .changes = 2, .looks = 10, .flushes = 2, .updates = 1}));
}

TEST_P(ActionCostTest, OpeningThePanelAndErasingInIt) {
    ExpectTooMany();
    EXPECT_EQ(CostOf([&] { user->Click(Main().cmdViewNotes); }),
              (Cost{.listings = 1, .looks = 2, .updates = 1}));
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("NOTE 1001", forms::BoxResult::Yes);
    ExpectTooMany();
    // If there are more files than slots, another file gets the slot of the erased note. If the
    // only note is erased, the focus moves to New.
    const int fillsSlot = GetParam() > StandardCode::maximumNotes ? 1 : 0;
    const int movesFocus = GetParam() == 1 ? 1 : 0;
    EXPECT_EQ(CostOf([&] { user->Click(Panel().cmdRemove); }),
              (Cost{.listings = 1,
                    .reads = fillsSlot,
                    .changes = 1,
                    .looks = 2,
                    .updates = 5 - fillsSlot + movesFocus}));
}

TEST_P(ActionCostTest, ASecondOfAnIdleProgram) {
    Advance(5000);
    const Cost cost = CostOf([&] { Advance(1000); });
    // Each note updates its time of day once a second, even while it is minimized.
    EXPECT_EQ(cost, (Cost{.updates = GetParam()}));
}

TEST_P(ActionCostTest, LeavingWithoutAChange) {
    EXPECT_EQ(CostOf([&] { user->Click(Main().cmdExit); }), (Cost{.looks = GetParam()}));
}
