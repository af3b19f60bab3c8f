#include <windows.h>

#include <cstdio>
#include <map>

#include "tests/windows/DriverTest.h"
#include "tests/windows/long/Load.h"

// Checks that the real program notices every second of the clock: the editor shows the last time
// that its one-second timer saw. JOTWRIGHT_SECONDS is the length of the run.

namespace driver {

namespace {

constexpr int notes = 100;
constexpr int look = 20;  // milliseconds between two looks

std::uint64_t Milliseconds() { return ::GetTickCount64(); }

// The second of the day in "System Date and Time is \r
// 6/2/2031 9:00:01 AM."; -1 for other texts.
int SecondShown(const std::string& text) {
    int month = 0;
    int day = 0;
    int year = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    const std::size_t line = text.find('\n');
    if (line == std::string::npos ||
        std::sscanf(text.c_str() + line + 1, "%d/%d/%d %d:%d:%d", &month, &day, &year, &hour,
                    &minute, &second) != 6) {
        return -1;
    }
    const bool afternoon = text.find("PM") != std::string::npos;
    hour = hour % 12 + (afternoon ? 12 : 0);
    return hour * 3600 + minute * 60 + second;
}

}  // namespace

class SecondsRun : public DriverTest {
  protected:
    static Window ClockLabel(const Window& editor);
    void Watch(const Window& label, int seconds);
};

Window SecondsRun::ClockLabel(const Window& editor) {
    for (const Window& child : editor.ChildrenOfClass("Static")) {
        if (SecondShown(child.Text()) >= 0) {
            return child;
        }
    }
    throw Failure("no clock in " + editor.Description());
}

// Watches the label for changes. A second counts as missed only if the label was read in time. If a
// reading was late by more than a second, the seconds before it prove nothing.
void SecondsRun::Watch(const Window& label, int seconds) {
    int shown = SecondShown(label.Text());
    int seen = 0;
    int missed = 0;
    int doubled = 0;
    int unknown = 0;
    std::uint64_t lastLook = Milliseconds();
    std::uint64_t longestLook = 0;
    int latest = 0;  // longest delay of a shown second, in milliseconds
    std::map<int, int> lateness;
    Patience patience;
    while (seen + unknown + missed < seconds) {
        if (patience.HasEnded()) {
            throw Failure("waited in vain until the clock goes on");
        }
        ::Sleep(look);
        const int now = SecondShown(label.Text());
        SYSTEMTIME wall{};
        ::GetLocalTime(&wall);
        const std::uint64_t moment = Milliseconds();
        const std::uint64_t gap = moment - lastLook;
        longestLook = std::max(longestLook, gap);
        lastLook = moment;
        if (now == shown) {
            continue;
        }
        const int step = now - shown;
        if (step == 1) {
            ++seen;
            if (now % 60 == wall.wSecond) {
                latest = std::max<int>(latest, wall.wMilliseconds);
                ++lateness[wall.wMilliseconds / 100];
            } else {
                ++lateness[10];
            }
        } else if (step <= 0) {
            ++doubled;
        } else if (gap > 900) {
            ++seen;
            unknown += step - 1;
        } else {
            ++seen;
            missed += step - 1;
        }
        shown = now;
    }
    std::printf("seconds watched %d, seen %d, missed %d, doubled %d, not looked at in time %d\n",
                seconds, seen, missed, doubled, unknown);
    std::printf(
        "longest pause between two looks %llu ms; shown at the latest %d ms into the "
        "second\n",
        static_cast<unsigned long long>(longestLook), latest);
    for (const auto& [tenth, count] : lateness) {
        std::printf("  %s %d.. ms: %d\n", tenth == 10 ? "in the next second," : "at",
                    tenth % 10 * 100, count);
    }
    EXPECT_EQ(missed, 0);
    EXPECT_EQ(doubled, 0);
}

TEST_F(SecondsRun, EverySecondIsSeenWithAHundredNotesABoxOpenAndBothProcessorsBusy) {
    const int seconds = Number("JOTWRIGHT_SECONDS", 8);
    for (int i = 1; i <= notes; ++i) {
        const std::string title = "Note " + std::to_string(i);
        WriteNote(title,
                  '"' + title + "\",\"text\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    }
    program.Start(executable);
    Box(program, "Jotwright: Maximum Notes Reached").Click("OK");
    MainWindow();
    const Window editor = OpenRestored("Note 7");
    // A box stays open for the whole run.
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarSave);
    const Window box = program.WaitFor("", boxClass);
    WaitUntil("the clock runs", [&] {
        for (const Window& child : editor.ChildrenOfClass("Static")) {
            if (child.Text().starts_with("System Date") && SecondShown(child.Text()) >= 0) {
                return true;
            }
        }
        return false;
    });
    const Window label = ClockLabel(editor);
    {
        const Load load;
        Watch(label, seconds);
    }
    EXPECT_TRUE(box.Exists());
    box.Button("OK").Click();
}

}  // namespace driver
