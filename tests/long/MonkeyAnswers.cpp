// The monkey's answers to boxes, forms and menus that open.
#include "app/TrayMessages.h"
#include "tests/long/Monkey.h"

using namespace forms;

namespace long_tests {

namespace {

constexpr int deepest = 4;
constexpr int modalGestures = 8;

}  // namespace

base::DateTime Monkey::NearDate() {
    return base::DateTime{clock.Now().DateOnly().seconds +
                          (random.OneIn(3) ? random.Below(20) - 5 : 0) * base::secondsPerDay};
}

base::DateTime Monkey::NearTime() {
    const base::DateTime soon{clock.Now().seconds + random.Below(180)};
    return base::DateTime::FromTime(soon.Hour(), soon.Minute(), 0);
}

void Monkey::Type(TextBox& textBox) {
    const bool isNote = std::string(textBox.name) == "txtNote";
    const bool isTitle = std::string(textBox.name) == "txtNoteTitle";
    std::string typed = isNote    ? words.OfNote()
                        : isTitle ? words.Title()
                                  : words.Characters(random.Below(20));
    if (isNote && random.OneIn(2)) {
        typed = textBox.text() + typed;
    }
    constexpr std::size_t longest = 4000;
    calmSince = clock.MonotonicMilliseconds();
    user->Type(textBox, typed.size() > longest ? std::string() : typed);
}

void Monkey::Improvise() {
    stage->improvise.box = [this](const BoxRequest& box) { return AnswerBox(box); };
    stage->improvise.modal = [this](Form& form) { WorkModal(form); };
    stage->improvise.popup = [this](Menu& menu) { return ChooseFrom(menu); };
    stage->improvise.openDialog = [this](const FileDialogRequest&) -> std::optional<std::string> {
        Meanwhile();
        return random.OneIn(3) ? std::nullopt
                               : std::optional("C:\\" + words.Characters(5) + ".wav");
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
    const bool yes = random.OneIn(2);
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
        if (usable.empty() || random.OneIn(4)) {
            Meanwhile();
            continue;
        }
        AddForm(*random.OneOf(usable), choices);
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
    if (entries.empty() || depth >= deepest || random.OneIn(4)) {
        return nullptr;
    }
    Menu* chosen = random.OneOf(entries);
    // If the exit had the same weight as other entries, it would be chosen too often.
    if (std::string(chosen->name) == "mnuExit" && !random.OneIn(4)) {
        return nullptr;
    }
    Log(std::string("menu ") + chosen->name);
    return chosen;
}

void Monkey::Meanwhile() {
    if (depth >= deepest || runtime->HasEnded() || random.OneIn(2)) {
        return;
    }
    ++depth;
    const int kind = random.Below(10);
    if (kind < 7 || !tray.icon) {
        Log("time passes");
        Advance(1 + random.Below(kind == 0 ? 60'000 : 3000));
    } else if (kind == 7) {
        Log("the clock is set");
        clock.Jump(random.Below(120) - 60, random.Below(1000));
    } else {
        const int messages[] = {TrayMessages::leftButtonUp, TrayMessages::leftDoubleClick,
                                TrayMessages::rightButtonUp};
        const int message = random.OneOf(messages);
        Log("tray " + std::to_string(message));
        user->Tray(message);
    }
    --depth;
}

}  // namespace long_tests
