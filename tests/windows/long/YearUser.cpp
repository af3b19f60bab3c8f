#include "tests/windows/long/YearUser.h"

#include <vector>

namespace driver {

namespace {

constexpr const char* limitBox = "Jotwright: Maximum Notes Reached";
constexpr std::size_t mostNotes = 100;

// Replaces the only letter of the notes whose bytes in the files differ from its UTF-8.
std::string InFile(std::string text) {
    const std::string letter = "\xC3\xA9";
    for (std::size_t at = text.find(letter); at != std::string::npos; at = text.find(letter)) {
        text.replace(at, letter.size(), "\xE9");
    }
    return text;
}

}  // namespace

YearUser::Captions YearUser::Seen() const {
    Captions seen;
    for (const Window& window : program.Windows()) {
        const std::string kind = window.ClassName();
        if (window.IsVisible() && window.HasTitleBar() && (kind == formClass || kind == boxClass) &&
            window.Text() != mainCaption) {
            seen.insert(window.Text() + (window.IsMinimized() ? " (minimized)" : ""));
        }
    }
    return seen;
}

YearUser::Captions YearUser::Expected(const std::string& box) const {
    Captions expected;
    for (const auto& [title, note] : notes) {
        if (note.isOpen || note.shownAt >= 0) {
            expected.insert(title + (note.isOpen && !note.isUp ? " (minimized)" : ""));
        }
    }
    if (!box.empty()) {
        expected.insert(box);
    }
    return expected;
}

void YearUser::WaitForExpected() const {
    const Captions expected = Expected();
    if (!ComesTrue([&] { return Seen() == expected; })) {
        EXPECT_EQ(Seen(), expected);
        throw Failure("other windows than the model's at " + Clock::Now());
    }
}

void YearUser::CheckFiles() const {
    std::set<std::string> expected;
    for (const auto& [title, note] : notes) {
        expected.insert(title + ".txt");
        EXPECT_EQ(WholeFile(NotePath(title)).value_or("(no file)"), InFile(note.Bytes()));
    }
    std::set<std::string> found;
    for (const std::string& name : FileNames(folder + "\\Notes")) {
        found.insert(name);
    }
    EXPECT_EQ(found, expected);
}

void YearUser::WriteNotes() const {
    for (const auto& [title, note] : notes) {
        WriteNote(title, InFile(note.Bytes()));
    }
}

void YearUser::Start() {
    program.Start(executable);
    for (auto& [title, note] : notes) {
        note.isOpen = true;
        note.isUp = false;
        note.hasRung = false;
        note.shownAt = -1;
    }
    if (notes.size() >= mostNotes) {
        Box(program, limitBox).Click("OK");
    }
    MainWindow();
}

void YearUser::Kill() {
    ++kills;
    program.Kill();
}

void YearUser::Exit() {
    ++exits;
    ExitProgram();
    for (auto& [title, note] : notes) {
        if (note.hasRung) {
            note.Silence();
        }
    }
    CheckFiles();
}

Window YearUser::Editor(YearNote& note) const {
    note.isUp = true;
    return OpenRestored(note.title);
}

void YearUser::Hide(YearNote& note) {
    HideNote(Editor(note));
    note.SaveText(note.text);
    note.isOpen = false;
}

std::string YearUser::NewText(const YearNote& note) {
    return "text " + std::to_string(++texts) + " of " + note.title +
           "\r\nsays \"caf\xC3\xA9\", or not";
}

YearNote* YearUser::OneOpen() {
    std::vector<YearNote*> open;
    for (auto& [title, note] : notes) {
        if (note.isOpen) {
            open.push_back(&note);
        }
    }
    return open.empty() ? nullptr : open[random() % open.size()];
}

void YearUser::EditAndKill(YearNote& note) {
    const std::string text = NewText(note);
    Editor(note).Only("Edit").Type(text);
    WaitForCopy(note.title, text.substr(0, text.find('\r')));
    const bool hasRung = note.hasRung;
    Kill();
    Start();
    // The editor of an unsaved note is not minimized. An alarm that has rung stays off in it.
    note.isUp = true;
    note.hasRung = hasRung;
    WaitForExpected();
    EXPECT_EQ(Editor(note).Only("Edit").Text(), text);
    note.text = text;
    Hide(note);
}

void YearUser::EditAndHide(YearNote& note) {
    note.text = NewText(note);
    Editor(note).Only("Edit").Type(note.text);
    Hide(note);
}

void YearUser::EditAndSave(YearNote& note) {
    const std::string text = NewText(note);
    const Window editor = Editor(note);
    editor.Only("Edit").Type(text);
    ClickToolbar(editor.Only(toolbarClass), toolbarSave);
    Box(program, "").Click("OK");
    note.SaveText(text);
}

void YearUser::SetNewAlarm(YearNote& note, std::int64_t at) {
    const Window editor = Editor(note);
    note.SetAlarm(at, Below(2));
    PickDate(DatePicker(editor), 2031, std::stoi(note.date.substr(5, 2)),
             std::stoi(note.date.substr(8, 2)));
    PickTime(TimePicker(editor), std::stoi(note.time.substr(0, 2)),
             std::stoi(note.time.substr(3, 2)));
    if (note.audio == 1) {
        editor.Button(audioBoxCaption).Click();
        WaitUntil("the sound is on", [&] { return editor.Button(audioBoxCaption).IsChecked(); });
    }
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    HideNote(editor);
    note.hasRung = false;
    note.isOpen = false;
}

YearNote& YearUser::AddNote() {
    const std::string title = "Note " + std::to_string(++titles);
    YearNote& note = notes[title];
    note.title = title;
    note.text = NewText(note);
    return note;
}

std::string YearUser::MakeNoteFor(std::int64_t at) {
    YearNote& note = AddNote();
    tray::Click(FindMain());
    MakeNote(MainWindow(), note.title).Only("Edit").Type(note.text);
    SetNewAlarm(note, at);
    ++made;
    return note.title;
}

void YearUser::CloseDisplay(const std::string& title, bool erase) {
    const Window display = program.WaitFor(title, formClass);
    EXPECT_TRUE(display.FindChild("Static", "Jotwright Note"));
    EXPECT_EQ(display.Only("Edit").Text(), notes[title].text);
    const std::string today = Clock::Now().substr(0, 10);
    display.CloseBox();
    Box(program, displayQuestion).Click(erase ? "Yes" : "No");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
    if (erase) {
        notes.erase(title);
        return;
    }
    YearNote& note = notes[title];
    note.Silence();
    note.date = today;
    note.time = "12:00:00";
    note.hasTime = false;
    note.shownAt = -1;
}

void YearUser::CloseOldDisplays(std::int64_t now) {
    constexpr std::int64_t old = 2 * year::hour;
    std::vector<std::string> titlesOfOld;
    for (const auto& [title, note] : notes) {
        if (note.shownAt >= 0 && now - note.shownAt > old) {
            titlesOfOld.push_back(title);
        }
    }
    for (const std::string& title : titlesOfOld) {
        CloseDisplay(title, false);
    }
}

}  // namespace driver
