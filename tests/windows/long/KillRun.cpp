#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <random>

#include "tests/windows/DriverTest.h"
#include "tests/windows/long/Load.h"

// Kills the program again and again, while a user types and saves and both processors are busy.
// JOTWRIGHT_KILLS is the number of kills, JOTWRIGHT_SEED the seed of the random numbers.

namespace driver {

namespace {

constexpr const char* fields = ",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
constexpr std::uint64_t promised = 2000;  // milliseconds of typing that may be lost at most
constexpr DWORD keystroke = 80;           // milliseconds, of a fast typist
constexpr std::uint64_t standstill = 50;  // milliseconds; shorter stalls are usual

struct Typed {
    std::uint64_t at;  // milliseconds
    std::string text;
};

std::uint64_t Milliseconds() { return ::GetTickCount64(); }

// The text of a note's file; nothing if the file is not a whole note.
std::optional<std::string> TextOf(const std::string& title, const std::string& bytes) {
    const std::string start = '"' + title + "\",\"";
    const std::string end = '"' + std::string(fields);
    if (!bytes.starts_with(start) || !bytes.ends_with(end) ||
        bytes.size() < start.size() + end.size()) {
        return std::nullopt;
    }
    return bytes.substr(start.size(), bytes.size() - start.size() - end.size());
}

}  // namespace

class KillRun : public DriverTest {
  protected:
    // Milliseconds of typing before the kill. The time is rarely long enough for a whole recovery
    // copy.
    unsigned Delay() {
        return 50 + static_cast<unsigned>(random() % (random() % 4 == 0 ? 3500 : 700));
    }
    // The text box of the note's editor, as soon as it shows the text that a restart restores.
    Window TextBoxOf(const std::string& title);
    // Types and saves until the moment of the kill. Each text is recorded with the time just after
    // it was typed.
    void TypeUntil(std::uint64_t end, const Window& editor);
    void CloseTheBox(std::uint64_t end);
    void CheckTheFile();
    void CheckTheEditor();

    std::mt19937 random;
    std::uint64_t killedAt = 0;
    std::vector<Typed> typed;        // since the start, beginning with the restored text
    std::vector<std::string> saved;  // the texts that the file may hold
    int words = 0;
    int oldFiles = 0;
    int newFiles = 0;
    std::uint64_t worstLoss = 0;  // milliseconds
    // The time for which the driver, or the program into which it types, has not run since the
    // start.
    std::uint64_t stall = 0;
    std::uint64_t worstStall = 0;
    int lostSome = 0;
    int duringSave = 0;
};

Window KillRun::TextBoxOf(const std::string& title) {
    const Window editor = program.WaitFor(title, formClass);
    if (editor.IsMinimized()) {
        editor.Restore();
    }
    WaitUntilFilled(editor, "Edit");
    return editor.Only("Edit");
}

void KillRun::TypeUntil(std::uint64_t end, const Window& editor) {
    const Window text = editor.Only("Edit");
    const Window toolbar = editor.Only("ToolbarWindow32");
    std::string content = typed.back().text;
    while (Milliseconds() < end) {
        const std::uint64_t before = Milliseconds();
        content += " w" + std::to_string(++words);
        if (content.size() > 400) {
            content.erase(0, content.find(' ', 200));
        }
        text.Type(content);
        typed.push_back({Milliseconds(), content});
        if (random() % 20 == 0 && Milliseconds() + 500 < end) {
            saved.push_back(content);
            ClickToolbar(toolbar, toolbarSave);
            CloseTheBox(end);
        }
        ::Sleep(keystroke);
        const std::uint64_t passed = Milliseconds() - before;
        stall += passed > keystroke + standstill ? passed - keystroke : 0;
    }
    if (random() % 2 == 0) {
        saved.push_back(content);
        ClickToolbar(toolbar, toolbarSave);
        ::Sleep(static_cast<DWORD>(random() % 40));
        ++duringSave;
    }
}

// Closes the box "... has been saved."
void KillRun::CloseTheBox(std::uint64_t end) {
    while (Milliseconds() < end) {
        const auto boxes = program.Visible("", boxClass);
        if (!boxes.empty()) {
            boxes.front().Button("OK").Click();
            while (boxes.front().Exists() && Milliseconds() < end) {
                ::Sleep(5);
            }
            return;
        }
        ::Sleep(5);
    }
}

void KillRun::CheckTheFile() {
    const auto bytes = WholeFile(NotePath("Typed"));
    const auto text = bytes ? TextOf("Typed", *bytes) : std::nullopt;
    ASSERT_TRUE(text) << "neither old nor new: " << bytes.value_or("(no file)");
    ASSERT_NE(std::find(saved.begin(), saved.end(), *text), saved.end())
        << "never saved: " << *text;
    ++(*text == saved.back() ? newFiles : oldFiles);
}

void KillRun::CheckTheEditor() {
    const std::string shown = TextBoxOf("Typed").Text();
    const auto last = std::find_if(typed.rbegin(), typed.rend(),
                                   [&](const Typed& entry) { return entry.text == shown; });
    ASSERT_NE(last, typed.rend()) << "never typed: " << shown;
    if (last == typed.rbegin()) {
        return;
    }
    ++lostSome;
    // The oldest lost text is the one typed just after the restored text.
    const std::uint64_t loss = killedAt - (last - 1)->at;
    worstLoss = std::max(worstLoss, loss);
    // The machine may have run neither the program nor the driver for some time. That is no fault
    // of the program.
    EXPECT_LE(loss, promised + stall);
}

TEST_F(KillRun, TheNoteIsOldOrNewAndAtMostTwoSecondsOfTypingAreLost) {
    const int kills = Number("JOTWRIGHT_KILLS", 5);
    const auto seed = static_cast<unsigned>(Number("JOTWRIGHT_SEED", 1));
    std::printf("JOTWRIGHT_SEED=%u, %d kills\n", seed, kills);
    random.seed(seed);
    WriteNote("Typed", "\"Typed\",\"begin\"" + std::string(fields));
    saved = {"begin"};
    typed = {{Milliseconds(), "begin"}};
    const Load load;
    for (int kill = 1; kill <= kills && !HasFailure(); ++kill) {
        program.Start(executable);
        if (kill > 1) {
            CheckTheEditor();
        }
        const Window text = TextBoxOf("Typed");
        typed = {{Milliseconds(), text.Text()}};
        worstStall = std::max(worstStall, stall);
        stall = 0;
        // The file may keep its present contents until the next save.
        saved = {TextOf("Typed", WholeFile(NotePath("Typed")).value_or("")).value_or("")};
        try {
            TypeUntil(Milliseconds() + Delay(), text.Parent());
        } catch (const Failure& failure) {
            ADD_FAILURE() << failure.what() << program.Description();
        }
        killedAt = Milliseconds();
        program.Kill();
        CheckTheFile();
        if (kill % 50 == 0 || kill == kills) {
            std::printf(
                "%d kills (%d in the middle of a save): file as last saved %d, as before that %d; "
                "typing lost %d times, at most %llu ms (the machine stood still for up to %llu "
                "ms)\n",
                kill, duringSave, newFiles, oldFiles, lostSome,
                static_cast<unsigned long long>(worstLoss),
                static_cast<unsigned long long>(std::max(worstStall, stall)));
            std::fflush(stdout);
        }
    }
}

}  // namespace driver
