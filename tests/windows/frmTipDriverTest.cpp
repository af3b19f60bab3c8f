#include <set>

#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* caption = "Jotwright - Tips and Tricks";
constexpr const char* heading = "Did you know...";
constexpr const char* picture = "Light bulb";  // the name of a picture is a text for screen readers

}  // namespace

class frmTipDriverTest : public DriverTest {
  protected:
    Window Open(const Window& main) const;
    static std::string Shown(const Window& tips);
};

Window frmTipDriverTest::Open(const Window& main) const {
    const Window tips = OpenFromMenuBar(main, barShowTips, caption, "Static");
    EXPECT_TRUE(tips.FindChild("Static", heading));
    EXPECT_FALSE(main.IsEnabled());
    return tips;
}

std::string frmTipDriverTest::Shown(const Window& tips) {
    for (const Window& label : tips.ChildrenOfClass("Static")) {
        if (const std::string text = label.Text();
            !text.empty() && text != heading && text != picture) {
            return text;
        }
    }
    throw Failure("no tip in " + tips.Description());
}

TEST_F(frmTipDriverTest, TheTipsAreShownInTurnAndOkStoresTheCheckBox) {
    const Window main = StartProgram();
    // The check box shows the setting that was read at start-up, even if another setting was saved
    // later.
    WriteSetting("Startup", "View Tips", "0");
    const Window tips = Open(main);
    EXPECT_TRUE(tips.Button("&Don't Show Tips at Startup").IsChecked());
    const std::string first = Shown(tips);
    std::set<std::string> shown{first};
    while (shown.size() < 10) {
        const std::string before = Shown(tips);
        tips.Button("&Next Tip").Click();
        WaitUntil("the next tip is shown", [&] { return Shown(tips) != before; });
        ASSERT_TRUE(shown.insert(Shown(tips)).second) << Shown(tips);
    }
    EXPECT_TRUE(ComesTrue([&] { return !tips.Button("&Next Tip").IsEnabled(); }));
    tips.Button("OK").Click();
    program.WaitUntilGone(caption);
    EXPECT_EQ(Setting("Startup", "View Tips"), "1");

    const Window again = Open(main);
    EXPECT_EQ(Shown(again), first);
    again.CloseBox();
    program.WaitUntilGone(caption);
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
}

}  // namespace driver
