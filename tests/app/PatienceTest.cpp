#include "app/Patience.h"
#include "base/RuntimeError.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/NoteProgram.h"

namespace {

using base::ErrorNumber;
using base::RuntimeError;

class PatienceTest : public testing_support::NoteProgram {
  protected:
    // Pauses until Wait() refuses. Returns the milliseconds that have passed.
    int UseUp() {
        const int before = system.paused;
        while (Patience::Wait()) {
        }
        return system.paused - before;
    }
};

TEST_F(PatienceTest, AnActionOfTheUserWaitsAtMostOneAndAHalfSeconds) {
    Start([this] {
        EXPECT_EQ(UseUp(), 1500);
        EXPECT_EQ(UseUp(), 0);
    });
    Start([this] { EXPECT_EQ(UseUp(), 1500); });
}

TEST_F(PatienceTest, ARoundOfTicksWaitsAtMostAFifthOfASecond) {
    frmNote& note = MakeNote("Dentist");
    frmNote& other = MakeNote("Other");
    int waited = 0;
    int ticks = 0;
    for (frmNote* editor : {&note, &other}) {
        editor->tmrNow.Tick = [&] {
            waited += UseUp();
            ++ticks;
        };
    }
    Advance(1000);
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(waited, 200);
}

TEST_F(PatienceTest, AfterABoxTheActionIsTheSame) {
    ExpectMessage("wait", "", forms::BoxIcon::None,
                  [this] { Start([this] { EXPECT_EQ(UseUp(), 1500); }); });
    Start([this] {
        const auto action = runtime->CurrentAction();
        forms::MsgBox("wait", {}, "");
        EXPECT_EQ(runtime->CurrentAction().number, action.number);
        EXPECT_TRUE(runtime->CurrentAction().isUsers);
    });
}

TEST_F(PatienceTest, OnlyAFileInUseIsTriedAgain) {
    Start([] {
        for (const auto& [error, attempts] :
             {std::pair{ErrorNumber::PermissionDenied, 76}, {ErrorNumber::DiskFull, 1}}) {
            int made = 0;
            EXPECT_EQ(testing_support::ErrorOf([&, number = error] {
                          Patience::Try([&] {
                              ++made;
                              throw RuntimeError(number);
                          });
                      }),
                      static_cast<int>(error));
            EXPECT_EQ(made, attempts);
        }
        EXPECT_EQ(Patience::Try([] { return 7; }), 7);
    });
}

}  // namespace
