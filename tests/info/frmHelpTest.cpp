#include <gtest/gtest.h>

#include "info/frmHelp.h"
#include "tests/support/TestProgram.h"

namespace {

class frmHelpTest : public testing_support::TestProgram {};

TEST_F(frmHelpTest, CloseUnloadsIt) {
    Start([] { forms::Default<frmHelp>().Show(); });
    user->Click(forms::Default<frmHelp>().cmdClose);
    EXPECT_EQ(forms::LoadedDefault<frmHelp>(), nullptr);
}

}  // namespace
