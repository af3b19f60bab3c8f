#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"

namespace driver {

// Operates the windows with real keys, without a mouse.
class KeyboardTest : public DriverTest {
  protected:
    // Presses Tab and waits until the focus has moved.
    static void PressTab(const Window& window);
    // Presses Tab until the focus is back at the start. Expects that it reaches all controls in
    // reading order.
    static void ExpectTabRound(const Window& window);
    // Presses keys until they have had their effect. On a busy machine, Wine may release a key such
    // as Alt if the focus arrives in the middle of a combination.
    static void PressUntil(const std::string& what, const std::vector<WORD>& keys,
                           const std::function<bool()>& effect);
    void ExpectMenuBy(const std::vector<WORD>& keys, const Window& window) const;
    void ExpectMenu(const Window& window) const;
    void CloseByEscape(const Window& window) const;
};

namespace {

bool IsOptionButton(const Window& control) {
    return control.ClassName() == "Button" && (control.Style() & BS_TYPEMASK) == BS_RADIOBUTTON;
}

bool IsInteractive(const Window& control) {
    const std::string name = control.ClassName();
    const bool isFrame = name == "Button" && (control.Style() & BS_TYPEMASK) == BS_GROUPBOX;
    return control.IsVisible() && control.IsEnabled() && name != "Static" && !isFrame;
}

// Whether the step goes up or to the left, against the reading order.
bool GoesBack(const Window& from, const Window& to) {
    const RECT before = from.Place();
    const RECT next = to.Place();
    return next.left < before.right && next.top < before.bottom;
}

}  // namespace

void KeyboardTest::PressTab(const Window& window) {
    const Window before = window.Focus();
    hands::PressKeys({VK_TAB});
    WaitUntil("the focus moves on from " + before.Description(),
              [&] { return window.Focus() && window.Focus() != before; });
}

void KeyboardTest::ExpectTabRound(const Window& window) {
    WaitForKeyboard(window);
    std::vector<Window> round{window.Focus()};
    constexpr std::size_t most = 60;
    for (;;) {
        PressTab(window);
        if (window.Focus() == round.front() || round.size() > most) {
            break;
        }
        round.push_back(window.Focus());
    }
    EXPECT_LE(round.size(), most) << "the Tab key never comes back in " << window.Description();
    for (const Window& control : window.Children()) {
        // Tab reaches one option button of a group; the arrow keys reach the others.
        if (IsInteractive(control) && !IsOptionButton(control)) {
            EXPECT_EQ(std::count(round.begin(), round.end(), control), 1)
                << control.Description() << " in " << window.Description();
        }
    }
    std::string backward;
    int timesBack = 0;
    for (std::size_t i = 0; i < round.size(); ++i) {
        const Window& next = round[(i + 1) % round.size()];
        if (GoesBack(round[i], next)) {
            ++timesBack;
            backward += "\n  from " + round[i].Description() + " to " + next.Description();
        }
    }
    EXPECT_LE(timesBack, 1) << window.Description() << backward;
}

void KeyboardTest::PressUntil(const std::string& what, const std::vector<WORD>& keys,
                              const std::function<bool()>& effect) {
    WaitUntil(what, [&] {
        if (effect()) {
            return true;
        }
        hands::PressKeys(keys);
        return ComesTrueSoon(effect);
    });
}

void KeyboardTest::ExpectMenuBy(const std::vector<WORD>& keys, const Window& window) const {
    WaitForKeyboard(window);
    PressUntil("a menu opens in " + window.Description(), keys,
               [&] { return static_cast<bool>(program.OpenMenu()); });
    hands::PressKeys({VK_ESCAPE});
    WaitUntil("the menu closes", [&] { return !program.OpenMenu(); });
}

void KeyboardTest::ExpectMenu(const Window& window) const {
    ExpectMenuBy({VK_SHIFT, VK_F10}, window);
    ExpectMenuBy({VK_APPS}, window);
}

void KeyboardTest::CloseByEscape(const Window& window) const {
    WaitForKeyboard(window);
    hands::PressKeys({VK_ESCAPE});
    WaitUntil("Escape closes the window", [&] { return !window.Exists(); });
}

TEST_F(KeyboardTest, AccessKeysOfTheMainWindowOpenTheToolsAndEscapeClosesThem) {
    const Window main = StartProgram();
    ExpectTabRound(main);
    const std::pair<WORD, const char*> tools[] = {
        {'P', "Special Alarms"}, {'T', "Novelty Timer"}, {'S', "Novelty Stop Watch"}};
    for (const auto& [key, caption] : tools) {
        WaitForKeyboard(main);
        PressUntil(std::string("the key opens ") + caption, {VK_MENU, key},
                   [&] { return !program.Visible(caption).empty(); });
        const Window tool = program.WaitFor(caption);
        ExpectTabRound(tool);
        CloseByEscape(tool);
    }
    // Two captions share this access key. It moves the focus between them, with or without Alt.
    WaitForKeyboard(main);
    PressUntil("the focus moves", {VK_MENU, 'C'},
               [&] { return main.Button("Start CooKoo &Clock").HasFocus(); });
    hands::PressKeys({'C'});
    WaitUntil("the focus moves on", [&] { return main.Button("Notes &Control Panel").HasFocus(); });
    PressUntil("the focus moves back", {VK_MENU, 'C'},
               [&] { return main.Button("Start CooKoo &Clock").HasFocus(); });
    hands::PressKeys({VK_SPACE});
    WaitUntil("the button is pressed",
              [&] { return static_cast<bool>(main.FindChild("Button", "Stop CooKoo &Clock")); });
    ExpectMenu(main);
    PressUntil("the program ends", {VK_MENU, VK_F4}, [&] { return !program.Runs(); });
    EXPECT_EQ(program.WaitForEnd(), 0U);
}

TEST_F(KeyboardTest, TheMenuBarOpensTheOtherWindows) {
    const Window main = StartProgram();
    const std::pair<std::vector<WORD>, const char*> entries[] = {
        {{'T', 'P', 'C'}, "Choose An Alarm"},
        {{'T', 'P', VK_DOWN, VK_RETURN}, "Note Options"},
        {{'H', 'A'}, "About Jotwright"},
        {{'H', 'S'}, "Jotwright - Tips and Tricks"},
    };
    for (const auto& [keys, caption] : entries) {
        WaitForKeyboard(main);
        // A menu that is just opening ignores keys. If the pause was too short, try again.
        WaitUntil(std::string("the menu leads to ") + caption, [&] {
            main.Post(WM_CANCELMODE);
            WaitUntil("no menu is open", [&] { return !program.OpenMenu(); });
            hands::PressKeys({VK_F10});
            for (const WORD key : keys) {
                ::Sleep(50);
                hands::PressKeys({key});
            }
            return ComesTrueSoon([&] { return !program.Visible(caption).empty(); });
        });
        const Window window = program.WaitFor(caption);
        ExpectTabRound(window);
        CloseByEscape(window);
    }
    EXPECT_EQ(Setting("Startup", "View Tips"), "1") << "Escape stores nothing";
}

TEST_F(KeyboardTest, ANoteIsMadeWrittenSavedAndClosed) {
    const Window main = StartProgram();
    WaitForKeyboard(main);
    hands::TypeKeys("2004");
    hands::PressKeys({VK_RETURN});
    CloseByEscape(program.WaitFor(" Note Title Error"));
    WaitForKeyboard(main);
    WaitUntil("the title box has the focus", [&] { return main.Only("Edit").HasFocus(); });
    hands::PressKeys({VK_CONTROL, 'A'});
    hands::TypeKeys("dentist");
    hands::PressKeys({VK_RETURN});

    const Window editor = program.WaitFor("dentist");
    WaitUntilFilled(editor, "Edit");
    WaitForKeyboard(editor);
    const Window text = editor.Only("Edit");
    EXPECT_TRUE(text.HasFocus());
    ExpectMenu(editor);
    hands::TypeKeys("call them");
    hands::PressKeys({VK_RETURN});
    hands::TypeKeys("soon");
    WaitUntil("the text is typed", [&] { return text.Text() == "call them\r\nsoon"; });
    hands::PressKeys({VK_CONTROL, VK_BACK});
    WaitUntil("the word is deleted", [&] { return text.Text() == "call them\r\n"; });
    hands::PressKeys({VK_CONTROL, 'A'});
    hands::PressKeys({VK_DELETE});
    WaitUntil("all is deleted", [&] { return text.Text().empty(); });
    hands::PressKeys({VK_CONTROL, 'Z'});
    WaitUntil("that is undone", [&] { return !text.Text().empty(); });

    ExpectTabRound(editor);
    hands::PressKeys({VK_SHIFT, VK_TAB});
    const Window toolbar = editor.Only(toolbarClass);
    WaitUntil("the toolbar has the focus", [&] { return toolbar.HasFocus(); });
    ExpectMenu(editor);
    hands::PressKeys({VK_END});
    hands::PressKeys({VK_RETURN});
    CloseByEscape(program.WaitFor("About Jotwright"));
    WaitUntil("the toolbar has the focus", [&] { return toolbar.HasFocus(); });
    hands::PressKeys({VK_RIGHT});
    hands::PressKeys({VK_SPACE});
    WaitUntil("a box says that the note is saved", [&] {
        const auto boxes = program.Visible("", boxClass);
        return !boxes.empty() && ::GetForegroundWindow() == boxes.front().handle;
    });
    EXPECT_TRUE(FileExists(NotePath("dentist")));
    hands::PressKeys({VK_RETURN});
    WaitForKeyboard(editor);
    PressUntil("the editor closes", {VK_MENU, VK_F4}, [&] { return !editor.Exists(); });
}

TEST_F(KeyboardTest, TheControlPanelCanBeUsedFromItsList) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    WriteNote("Shopping", "\"Shopping\",\"milk\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    for (const char* title : {"Dentist", "Shopping"}) {
        CloseAndWait(program.WaitFor(title));
    }
    const Window panel = OpenPanel(main);
    WaitForKeyboard(panel);
    const Window list = panel.Only(listClass);
    EXPECT_TRUE(list.HasFocus());
    hands::PressKeys({VK_DOWN});
    WaitUntil("a row is selected", [&] {
        return list.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 0;
    });
    ExpectTabRound(panel);
    ExpectMenu(panel);
    hands::PressKeys({VK_RETURN});
    const Window editor = program.WaitFor("Dentist");
    WaitUntilFilled(editor, "Edit");
    CloseAndWait(editor);
    CloseByEscape(program.WaitFor(panelCaption));
}

TEST_F(KeyboardTest, ControlSSavesANote) {
    const Window editor = MakeNote(StartProgram(), "Dentist");
    WaitForKeyboard(editor);
    const Window text = editor.Only("Edit");
    hands::TypeKeys("call");
    // AltGr, which is Ctrl and Alt, types letters in many layouts.
    hands::PressKeys({VK_CONTROL, VK_MENU, 'S'});
    hands::TypeKeys("x");
    WaitUntil("the text is typed", [&] { return text.Text().ends_with('x'); });
    EXPECT_TRUE(program.Visible("", boxClass).empty());
    EXPECT_FALSE(FileExists(NotePath("Dentist")));
    hands::PressKeys({VK_CONTROL, 'S'});
    WaitUntil("a box says that the note is saved", [&] {
        const auto boxes = program.Visible("", boxClass);
        return !boxes.empty() && ::GetForegroundWindow() == boxes.front().handle;
    });
    EXPECT_TRUE(FileExists(NotePath("Dentist")));
    hands::PressKeys({VK_RETURN});
    WaitForKeyboard(editor);
    WaitUntil("the text has the focus", [&] { return text.HasFocus(); });
}

TEST_F(KeyboardTest, DeleteErasesTheNoteThatIsSelectedInTheControlPanel) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    CloseAndWait(program.WaitFor("Dentist"));
    const Window panel = OpenPanel(main);
    WaitForKeyboard(panel);
    hands::PressKeys({VK_DOWN});
    WaitUntil("Erase can be used", [&] { return panel.Button("&Erase").IsEnabled(); });
    hands::PressKeys({VK_DELETE});
    Box(program, "Deleting Note").Click("Yes");
    WaitUntil("the note is erased", [&] { return !FileExists(NotePath("Dentist")); });
}

TEST_F(KeyboardTest, AnAlarmDisplayHasItsMenuAndKeepsItsText) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:30:00#,1,12,\"1\",0,\"yes\"\r\n");
    StartProgram();
    CloseAndWait(program.WaitFor("Dentist"));
    LetAlarmCome("2031-06-02 09:29:58", "Dentist");
    const Window display = program.WaitFor("Dentist");
    WaitUntilFilled(display, "Edit");
    WaitForKeyboard(display);
    ExpectMenu(display);
    hands::PressKeys({VK_ESCAPE});
    hands::PressKeys({VK_APPS});
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    EXPECT_TRUE(display.Exists()) << "Escape does not answer an alarm";
    WaitUntil("its last entry leads to the question", [&] {
        hands::PressKeys({VK_UP});
        hands::PressKeys({VK_RETURN});
        return ComesTrueSoon([&] { return !program.Visible(displayQuestion).empty(); });
    });
    Box(program, displayQuestion).Click("No");
    WaitUntil("the display closes", [&] { return !display.Exists(); });
}

}  // namespace driver
