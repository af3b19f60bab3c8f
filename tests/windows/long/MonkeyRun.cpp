#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <random>

#include "tests/windows/DriverTest.h"
#include "tests/windows/long/Load.h"

// Does anything that a user can do, in random order, to the real program. JOTWRIGHT_MONKEY_SECONDS
// is the length of the run, and JOTWRIGHT_SEED is the seed of the random numbers. The program uses
// real time, so no two runs are the same. The program must answer at all times, and it must end
// only in an orderly way.

namespace driver {

namespace {

constexpr UINT firstMenuCommand = 1000;
constexpr int menuCommands = 40;
constexpr std::size_t mostWindows = 120;

}  // namespace

class MonkeyRun : public DriverTest {
  protected:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    template <class T>
    const T& OneOf(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
    }
    std::string Text();
    void Act();
    void ActOnBox(const Window& box);
    void ActOnForm(const Window& form);
    void ActOnChild(const Window& child);
    // Fails if the program hangs.
    void ExpectAnswer();
    void ExpectWholeNotes();
    void StartAgain();

    std::mt19937 random;
    long gestures = 0;
    int starts = 0;
    int boxes = 0;
    std::size_t windows = 0;
    std::size_t memory = 0;
    std::string last;
};

std::string MonkeyRun::Text() {
    static const std::vector<std::string> parts{
        "Note", " 1",   " 2", "\xC3\xA4\xC3\xB6", "\xE6\x97\xA5", "\xF0\x9F\x98\x80", ",", "#",
        "'",    "\r\n", " ",  "\xD0\xB6"};
    std::string text;
    for (int i = Below(8); i >= 0; --i) {
        text += OneOf(parts);
    }
    return text;
}

void MonkeyRun::Act() {
    ++gestures;
    std::vector<Window> usable;
    const auto all = program.Windows();
    windows = std::max(windows, all.size());
    for (const Window& window : all) {
        const std::string kind = window.ClassName();
        if (window.IsVisible() && window.IsEnabled() &&
            (kind == formClass || kind == boxClass || kind == menuClass)) {
            usable.push_back(window);
        }
    }
    const Window main = FindMain();
    if (main && (usable.empty() || Below(12) == 0)) {
        last = "tray";
        const int kind = Below(3);
        kind == 0   ? tray::Click(main)
        : kind == 1 ? tray::DoubleClick(main)
                    : tray::RightClick(main);
        return;
    }
    if (usable.empty()) {
        ::Sleep(20);
        return;
    }
    const Window window = OneOf(usable);
    last = window.Description();
    if (window.ClassName() == menuClass) {
        const WPARAM keys[] = {VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE};
        window.Press(keys[Below(4)]);
        // If no choice is made, a menu stays open forever.
        if (Below(3) == 0) {
            main.Post(WM_CANCELMODE);
        }
    } else if (window.ClassName() == boxClass) {
        ActOnBox(window);
    } else {
        ActOnForm(window);
    }
}

void MonkeyRun::ActOnBox(const Window& box) {
    ++boxes;
    const auto buttons = box.ChildrenOfClass("Button");
    if (buttons.empty() || Below(8) == 0) {
        box.CloseBox();
        return;
    }
    const Window button = OneOf(buttons);
    if (button.IsEnabled()) {
        button.Post(BM_CLICK);
    }
}

void MonkeyRun::ActOnForm(const Window& form) {
    const int kind = Below(30);
    if (form.IsMinimized()) {
        form.Restore();
    } else if (kind == 0) {
        form.CloseBox();
    } else if (kind == 1) {
        form.Minimize();
    } else if (kind == 2 && (form.Style() & WS_MAXIMIZEBOX) != 0) {
        form.Post(WM_SYSCOMMAND, Below(2) == 0 ? SC_MAXIMIZE : SC_RESTORE);
    } else if (kind < 6) {
        form.Post(WM_COMMAND, firstMenuCommand + static_cast<UINT>(Below(menuCommands)));
    } else if (kind < 9) {
        const WPARAM keys[] = {VK_TAB, VK_RETURN, VK_ESCAPE, VK_SPACE, VK_DOWN};
        form.Press(keys[Below(5)]);
    } else {
        const auto children = form.Children();
        if (!children.empty()) {
            const Window child = OneOf(children);
            if (child.IsVisible() && child.IsEnabled()) {
                last += ", " + child.Description();
                ActOnChild(child);
            }
        }
    }
}

void MonkeyRun::ActOnChild(const Window& child) {
    const std::string kind = child.ClassName();
    if (kind == "Edit" && (child.Style() & ES_READONLY) == 0) {
        const std::string text = Text();
        for (const char character : text) {
            child.Post(WM_CHAR, static_cast<unsigned char>(character));
        }
    } else if (kind == "ComboBox") {
        Select(child, Below(7));
    } else if (kind == "ToolbarWindow32") {
        // Print and Help are left out, because they start other programs.
        const int buttons[] = {0, 1, 3, 5};
        ClickToolbar(child, buttons[Below(4)]);
    } else if (kind == "Button") {
        child.Post(BM_CLICK);
    } else {
        const LPARAM place = MAKELPARAM(5 + Below(60), 5 + Below(30));
        const bool right = Below(4) == 0;
        child.Post(right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, place);
        child.Post(right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, place);
        child.Press(Below(2) == 0 ? VK_UP : VK_DOWN);
    }
}

void MonkeyRun::ExpectAnswer() {
    for (const Window& window : program.Windows()) {
        if (window.ClassName() != "FormsUtility") {
            continue;
        }
        if (!window.Answers() && program.Runs()) {
            throw Failure("the program does not answer");
        }
        memory = std::max(memory, program.PrivateKilobytes());
    }
    EXPECT_LE(program.Windows().size(), mostWindows) << program.Description();
}

void MonkeyRun::ExpectWholeNotes() {
    if (!FolderExists(folder + "\\Notes")) {
        return;
    }
    for (const std::string& name : FileNames(folder + "\\Notes")) {
        if (name.ends_with(".txt")) {
            const auto bytes = WholeFile(folder + "\\Notes\\" + name);
            EXPECT_TRUE(bytes && bytes->ends_with(",\"yes\"\r\n")) << name;
        }
    }
}

void MonkeyRun::StartAgain() {
    if (starts > 0) {
        EXPECT_EQ(program.WaitForEnd(), 0U) << "after " << last;
    }
    ExpectWholeNotes();
    program.Start(executable);
    ++starts;
    WaitUntil("the program is up", [this] { return static_cast<bool>(FindMain()); });
}

TEST_F(MonkeyRun, TheProgramAnswersAndEndsInOrderAfterAnyGestures) {
    const int seconds = Number("JOTWRIGHT_MONKEY_SECONDS", 6);
    const auto seed = static_cast<unsigned>(Number("JOTWRIGHT_SEED", 1));
    random.seed(seed);
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    while (::GetTickCount64() < end && !HasFailure()) {
        if (!program.Runs()) {
            StartAgain();
        }
        try {
            Act();
        } catch (const Failure&) {
            // The window has closed, or has become disabled or hidden, since it was chosen.
        }
        ::Sleep(static_cast<DWORD>(Below(20)));
        if (gestures % 20 == 0 && program.Runs()) {
            ExpectAnswer();
        }
    }
    std::printf(
        "JOTWRIGHT_SEED=%u: %d seconds, %ld gestures, %d starts, %d boxes, at most %zu "
        "top-level windows and %zu KB\n",
        seed, seconds, gestures, starts, boxes, windows, memory);
    ExpectWholeNotes();
}

}  // namespace driver
