#include <gtest/gtest.h>

#include "app/StandardCode.h"
#include "info/dlgInput.h"
#include "tests/support/TestProgram.h"

namespace {

class dlgInputTest : public testing_support::TestProgram {
  protected:
    void Ask(const std::function<void(dlgInput&)>& script) {
        stage->ExpectModal<dlgInput>(script);
        Start([] { forms::Default<dlgInput>().ShowModal(); });
        EXPECT_EQ(forms::LoadedDefault<dlgInput>(), nullptr);
    }
};

TEST_F(dlgInputTest, YesSetsTheAnswerToTwo) {
    Ask([this](dlgInput& window) { user->Click(window.cmdYes); });
    EXPECT_EQ(StandardCode::Shared().Answer, 2);
}

TEST_F(dlgInputTest, NoSetsTheAnswerToOne) {
    Ask([this](dlgInput& window) { user->Click(window.cmdNo); });
    EXPECT_EQ(StandardCode::Shared().Answer, 1);
}

TEST_F(dlgInputTest, TheCloseBoxDoesNotChangeTheAnswer) {
    StandardCode::Shared().Answer = 2;
    Ask([this](dlgInput& window) { user->CloseBox(window); });
    EXPECT_EQ(StandardCode::Shared().Answer, 2);
}

}  // namespace
