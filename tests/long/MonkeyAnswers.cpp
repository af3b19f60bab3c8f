// The texts that the monkey types, and its answers to boxes, forms and menus that open.
#include <array>

#include "app/TrayMessages.h"
#include "tests/long/Monkey.h"

using namespace forms;

namespace long_tests {

namespace {

constexpr int deepest = 4;
constexpr int modalGestures = 8;

}  // namespace

std::string Monkey::Characters(int count) {
    static const std::vector<std::string> alphabets[] = {
        {"a", "b", "e", "n", "o", "t", " ", "A", "Z", "0", "9"},
        {"ä", "ö", "ü", "ß", "é", "ç", "ñ", "Ø"},
        {"д", "ж", "я", "Ё"},
        {"α", "β", "ς", "Ω"},
        {"日", "本", "語", "の", "한", "글"},
        {"ع", "ر", "ب", "י", "ש"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x8F\xBD", "e\xCC\x81", "\xE2\x80\x8D", "\xE2\x80\xAE"},
        {",", "#", "'", "&", "%", "*", "?", "<", "|", ";", ":", ".", "/", "\\", "\""},
    };
    const auto& alphabet = alphabets[Below(static_cast<int>(std::size(alphabets)))];
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += alphabet[static_cast<std::size_t>(Below(static_cast<int>(alphabet.size())))];
    }
    return text;
}

std::string Monkey::NoteText() {
    std::string text;
    for (int line = Below(4); line >= 0; --line) {
        text += Characters(Below(30)) + (line > 0 ? "\r\n" : "");
    }
    return text;
}

std::string Monkey::Title() {
    return OneIn(3) ? Characters(1 + Below(12)) : "Note " + std::to_string(Below(15));
}

base::DateTime Monkey::NearDate() {
    return base::DateTime{clock.Now().DateOnly().seconds +
                          (OneIn(3) ? Below(20) - 5 : 0) * base::secondsPerDay};
}

base::DateTime Monkey::NearTime() {
    const base::DateTime soon{clock.Now().seconds + Below(180)};
    return base::DateTime::FromTime(soon.Hour(), soon.Minute(), 0);
}

void Monkey::Type(TextBox& textBox) {
    const bool isNote = std::string(textBox.name) == "txtNote";
    const bool isTitle = std::string(textBox.name) == "txtNoteTitle";
    std::string text = isNote ? NoteText() : isTitle ? Title() : Characters(Below(20));
    if (isNote && OneIn(2)) {
        text = textBox.text() + text;
    }
    constexpr std::size_t longest = 4000;
    calmSince = clock.MonotonicMilliseconds();
    user->Type(textBox, text.size() > longest ? std::string() : text);
}

void Monkey::Improvise() {
    stage->improvise.box = [this](const BoxRequest& box) { return AnswerBox(box); };
    stage->improvise.modal = [this](Form& form) { WorkModal(form); };
    stage->improvise.popup = [this](Menu& menu) { return ChooseFrom(menu); };
    stage->improvise.openDialog = [this](const FileDialogRequest&) -> std::optional<std::string> {
        Meanwhile();
        return OneIn(3) ? std::nullopt : std::optional("C:\\" + Characters(5) + ".wav");
    };
}

BoxResult Monkey::AnswerBox(const BoxRequest& box) {
    Log("box " + box.caption + ": " + box.text);
    if (box.text.starts_with("Run-time error") && !trouble.IsOn()) {
        ADD_FAILURE() << box.text;
    }
    Meanwhile();
    calmSince = clock.MonotonicMilliseconds();
    if (box.options.buttons != BoxButtons::YesNo) {
        return BoxResult::Ok;
    }
    const bool yes = OneIn(2);
    const bool asksToSave = box.caption == "Save Changes?";
    // The alarm display saves its own text with either answer.
    if (yes != asksToSave || box.caption == " Erase Note?") {
        userDropped = true;
    }
    return yes ? BoxResult::Yes : BoxResult::No;
}

void Monkey::WorkModal(Form& form) {
    const auto pin = form.shared_from_this();
    ++depth;
    for (int i = 0; i < modalGestures && form.IsVisible() && !runtime->HasEnded(); ++i) {
        Choices choices;
        const auto usable = UsableForms();
        if (usable.empty() || OneIn(4)) {
            Meanwhile();
            continue;
        }
        AddForm(*usable[static_cast<std::size_t>(Below(static_cast<int>(usable.size())))], choices);
        if (depth < deepest) {
            Do(choices);
        }
    }
    --depth;
    calmSince = clock.MonotonicMilliseconds();
}

Menu* Monkey::ChooseFrom(Menu& menu) {
    Meanwhile();
    std::vector<Menu*> entries;
    if (!runtime->HasEnded()) {
        AddMenus(menu.entries, &menu, entries);
    }
    if (entries.empty() || depth >= deepest || OneIn(4)) {
        return nullptr;
    }
    Menu* chosen = entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))];
    // If the exit had the same weight as other entries, it would be chosen too often.
    if (std::string(chosen->name) == "mnuExit" && !OneIn(4)) {
        return nullptr;
    }
    Log(std::string("menu ") + chosen->name);
    return chosen;
}

void Monkey::Meanwhile() {
    if (depth >= deepest || runtime->HasEnded() || OneIn(2)) {
        return;
    }
    ++depth;
    const int kind = Below(10);
    if (kind < 7 || !tray.icon) {
        Log("time passes");
        Advance(1 + Below(kind == 0 ? 60'000 : 3000));
    } else if (kind == 7) {
        Log("the clock is set");
        clock.Jump(Below(120) - 60, Below(1000));
    } else {
        const int messages[] = {TrayMessages::leftButtonUp, TrayMessages::leftDoubleClick,
                                TrayMessages::rightButtonUp};
        const int message = messages[Below(3)];
        Log("tray " + std::to_string(message));
        user->Tray(message);
    }
    --depth;
}

}  // namespace long_tests
