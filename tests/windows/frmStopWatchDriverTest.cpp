#include "tests/windows/DriverTest.h"

namespace driver {

class frmStopWatchDriverTest : public DriverTest {
  protected:
    inline static const MenuPath barSave{0, 0};
    inline static const MenuPath barClear{0, 1};

    Window Open(const Window& main) const;
    // Starts the watch and stops it at atLeast or later. Returns the time that it shows.
    static std::string Run(const Window& watch, const std::string& atLeast);
    static std::string Shown(const Window& watch);
    static void WaitUntilItShows(const Window& watch, const std::string& atLeast);
    static void WaitForRows(const Window& watch, int count);
    static void ExpectRow(const Window& watch, int row, const std::string& run,
                          const std::string& time);
};

Window frmStopWatchDriverTest::Open(const Window& main) const {
    main.Button("&Stop Watch").Click();
    const Window watch = program.WaitFor("Novelty Stop Watch");
    WaitUntilFilled(watch, listClass);
    return watch;
}

std::string frmStopWatchDriverTest::Shown(const Window& watch) {
    for (const Window& label : watch.ChildrenOfClass("Static")) {
        const std::string text = label.Text();
        if (text.size() == 8 && text[2] == ':' && text[5] == ':') {
            return text;
        }
    }
    throw Failure("no time in " + watch.Description());
}

void frmStopWatchDriverTest::WaitUntilItShows(const Window& watch, const std::string& atLeast) {
    WaitUntil("it shows " + atLeast, [&] { return Shown(watch) >= atLeast; });
}

std::string frmStopWatchDriverTest::Run(const Window& watch, const std::string& atLeast) {
    watch.Button("&Start").Click();
    WaitUntil("it runs", [&] { return watch.Button("S&top").IsEnabled(); });
    EXPECT_FALSE(watch.Button("&Start").IsEnabled());
    EXPECT_FALSE(watch.Button("Sa&ve").IsEnabled());
    WaitUntilItShows(watch, atLeast);
    watch.Button("S&top").Click();
    WaitUntil("the run can be saved", [&] { return watch.Button("Sa&ve").IsEnabled(); });
    return Shown(watch);
}

void frmStopWatchDriverTest::WaitForRows(const Window& watch, int count) {
    WaitUntil("the list has " + std::to_string(count) + " rows",
              [&] { return RowCount(watch.Only(listClass)) == count; });
    watch.Send(WM_NULL);
    EXPECT_TRUE(watch.FindChild("Static", "Total Watch Starts: " + std::to_string(count)));
    EXPECT_FALSE(watch.Button("Sa&ve").IsEnabled());
}

void frmStopWatchDriverTest::ExpectRow(const Window& watch, int row, const std::string& run,
                                       const std::string& time) {
    const Window list = watch.Only(listClass);
    EXPECT_EQ(CellText(list, row, 0), "");
    EXPECT_EQ(CellText(list, row, 1), run);
    EXPECT_EQ(CellText(list, row, 2), time);
}

TEST_F(frmStopWatchDriverTest, RunsAreSavedListedAndCleared) {
    const Window watch = Open(StartProgram());
    EXPECT_FALSE(watch.Button("Sa&ve").IsEnabled());
    const std::string first = Run(watch, "00:00:01");
    watch.Button("Sa&ve").Click();
    WaitForRows(watch, 1);
    EXPECT_EQ(Shown(watch), first) << "the watch stands";
    const std::string second = Run(watch, "00:00:00");
    ChooseFromMenuBar(program, watch, barSave);
    WaitForRows(watch, 2);
    ExpectRow(watch, 0, "   #2", second);
    ExpectRow(watch, 1, "   #1", first);
    ChooseFromMenuBar(program, watch, barClear);
    WaitForRows(watch, 0);
}

}  // namespace driver
