#include "tests/long/Monkey.h"

#include <algorithm>

#include "app/TrayMessages.h"
#include "base/Text.h"
#include "forms/Gestures.h"
#include "notes/NoteStore.h"

using namespace forms;
using StandardCode::Shared;

namespace long_tests {

namespace {

constexpr std::size_t keptStory = 60;
constexpr std::int64_t promised = 2100;  // milliseconds after which typed text outlives a kill
constexpr int crowded = 40;

std::string NameOf(const Control& control) {
    return std::string(control.form.name) + '.' + control.name;
}

}  // namespace

void Monkey::SetUp() {
    WholeProgram::SetUp();
    sound.defaultLength = 300;
}

void Monkey::Begin(std::uint32_t seed) {
    random.Seed(seed);
    SetNow(2031, 6, 2, 9, 0, 0);
    StartProgram();
}

std::string Monkey::Story() const {
    std::string text;
    for (const std::string& line : story) {
        text += "\n  " + line;
    }
    return text;
}

void Monkey::Log(const std::string& what) {
    const base::DateTime now = clock.Now();
    story.push_back(base::FormatIsoDate(now) + ' ' + base::FormatTime24(now) +
                    std::string(1U + static_cast<std::size_t>(depth) * 2U, ' ') + what);
    if (story.size() > keptStory) {
        story.pop_front();
    }
}

void Monkey::Listen() {
    StandardCode::Signals().NotesArrayLoaded.Subscribe([this] { trouble.NotesWereRead(); });
}

void Monkey::StartProgram() {
    ++starts;
    Log("start");
    EndTrouble();
    trouble.RemoveDamaged();
    sound.log.clear();  // a sound ends with its program
    trouble.ProgramStarts();
    depth = 0;
    erased.clear();
    Improvise();
    settings.values[{"Startup", "View Tips"}] = random.OneIn(4) ? "0" : "1";
    Start(StandardCode::Main);
    Listen();
    Advance(1100);
    calmSince = clock.MonotonicMilliseconds();
}

void Monkey::EndTrouble() {
    trouble.End();
    calmSince = clock.MonotonicMilliseconds();
}

void Monkey::Act() {
    ++gestures;
    if (runtime->HasEnded() || runtime->LoadedForms().empty()) {
        Restart();
        StartProgram();
        return;
    }
    before = OpenTexts();
    userDropped = Shared().ControlPanelMode || trouble.IsOn();
    Choices choices;
    std::vector<Form*> usable = UsableForms();
    if (!usable.empty() && !random.OneIn(4)) {
        AddForm(*random.OneOf(usable), choices);
    } else if (random.OneIn(60)) {
        trouble.AddTo(choices);
        choices.push_back(
            {trouble.IsOn() ? 30 : 0, "the trouble is over", [this] { EndTrouble(); }});
    } else {
        AddWorld(choices);
    }
    Do(choices);
    userDropped = userDropped || trouble.IsOn();
    Check();
}

void Monkey::Sleep() {
    const base::DateTime now = clock.Now();
    const base::DateTime morning =
        base::Combine(base::DateTime{now.DateOnly().seconds + base::secondsPerDay},
                      base::DateTime::FromTime(7, 0, 0));
    Log("sleep");
    if (!runtime->HasEnded()) {
        Suspend(morning.seconds - now.seconds + random.Below(600));
    }
}

// There are no ticks during sleep, so the time does not count as calm.
void Monkey::Suspend(std::int64_t seconds) {
    clock.Suspend(seconds);
    calmSince = clock.MonotonicMilliseconds();
}

void Monkey::Do(const Choices& choices) {
    int total = 0;
    for (const Choice& choice : choices) {
        total += choice.weight;
    }
    if (total == 0) {
        return;
    }
    int place = random.Below(total);
    for (const Choice& choice : choices) {
        place -= choice.weight;
        if (place < 0) {
            Log(choice.what);
            const auto act = choice.act;
            act();
            return;
        }
    }
}

std::vector<Form*> Monkey::UsableForms() {
    std::vector<Form*> usable;
    for (const auto& form : runtime->LoadedForms()) {
        if (form->IsVisible() && form->IsUsable() && form->IsShownOnStage()) {
            usable.push_back(form.get());
        }
    }
    return usable;
}

void Monkey::AddForm(Form& form, Choices& choices) {
    const std::string name = std::string(form.name) + " \"" + form.caption() + '"';
    const bool isMinimized = form.windowState() == WindowState::Minimized;
    const bool hasTitleBar = form.borderStyle != BorderStyle::None;
    if (hasTitleBar) {
        choices.push_back({2, "close " + name, [this, &form] { user->CloseBox(form); }});
    }
    if (form.windowState() != WindowState::Normal) {
        choices.push_back(
            {isMinimized ? 20 : 2, "restore " + name, [this, &form] { user->Restore(form); }});
    }
    if (isMinimized) {
        return;
    }
    if (form.borderStyle == BorderStyle::Fixed || form.borderStyle == BorderStyle::Sizable) {
        choices.push_back({1, "minimise " + name, [this, &form] { user->Minimize(form); }});
    }
    if (form.borderStyle == BorderStyle::Sizable) {
        choices.push_back({1, "maximise " + name, [this, &form] { user->Maximize(form); }});
        if (form.windowState() == WindowState::Normal) {
            choices.push_back({1, "size " + name, [this, &form] {
                                   user->Size(form, random.Below(20'000), random.Below(12'000));
                               }});
        }
    }
    if (hasTitleBar && form.windowState() == WindowState::Normal) {
        choices.push_back({1, "drag " + name, [this, &form] {
                               user->Drag(form, random.Below(9000), random.Below(9000),
                                          [this] { Meanwhile(); });
                           }});
    }
    choices.push_back({1, "right-click " + name, [this, &form] { user->RightClick(form); }});
    choices.push_back({1, "move over " + name, [this, &form] {
                           const int special[] = {TrayMessages::leftButtonUp,
                                                  TrayMessages::leftDoubleClick,
                                                  TrayMessages::rightButtonUp, random.Below(800)};
                           user->MouseMove(form, random.OneOf(special) * 15);
                       }});
    std::vector<Menu*> entries;
    AddMenus(form.Menus(), nullptr, entries);
    for (Menu* entry : entries) {
        choices.push_back({1, std::string("choose ") + form.name + '.' + entry->name,
                           [this, entry] { user->Choose(*entry); }});
    }
    for (Control* control : form.Controls()) {
        if (control->IsEffectivelyVisible() && control->IsEffectivelyEnabled()) {
            AddControl(*control, choices);
        }
    }
}

void Monkey::AddMenus(const std::vector<Menu*>& menus, const Menu* top, std::vector<Menu*>& found) {
    for (Menu* menu : menus) {
        if (!menu->entries.empty()) {
            AddMenus(menu->entries, top, found);
        } else if (headless::ReasonNotChoosable(*menu, top).empty()) {
            found.push_back(menu);
        }
    }
}

void Monkey::AddControl(Control& control, Choices& choices) {
    const std::string name = NameOf(control);
    if (auto* textBox = dynamic_cast<TextBox*>(&control)) {
        if (!textBox->readOnly) {
            choices.push_back({6, "type into " + name, [this, textBox] { Type(*textBox); }});
        }
        choices.push_back(
            {1, "double-click " + name, [this, textBox] { user->DoubleClick(*textBox); }});
    } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
        choices.push_back({1, "select in " + name,
                           [this, combo] { user->Select(*combo, random.OneOf(combo->items)); }});
    } else if (auto* list = dynamic_cast<ListView*>(&control)) {
        if (const int rows = static_cast<int>(list->Rows().size()); rows > 0) {
            choices.push_back({6, "select in " + name,
                               [this, list, rows] { user->Select(*list, random.Below(rows)); }});
            choices.push_back(
                {2, "double-click " + name, [this, list] { user->DoubleClick(*list); }});
        }
    } else if (auto* picker = dynamic_cast<DateTimePicker*>(&control)) {
        choices.push_back({3, "pick in " + name, [this, picker] {
                               user->Pick(*picker,
                                          picker->customFormat().empty() ? NearDate() : NearTime());
                           }});
    } else if (auto* toolbar = dynamic_cast<Toolbar*>(&control)) {
        for (const auto& button : toolbar->buttons()) {
            if (button.enabled) {
                choices.push_back({1, "button " + std::string(button.key) + " of " + name,
                                   [this, toolbar, key = std::string(button.key)] {
                                       if (key == "Erase") {
                                           erased.insert(toolbar->form.weak_from_this());
                                       }
                                       user->Click(*toolbar, key);
                                   }});
            }
        }
    } else if (control.PointerRank() > 1) {  // neither a frame nor only drawn
        // If the exit had the same weight as other buttons, it would be chosen too often.
        choices.push_back({name == "frmMain.cmdExit" ? 1 : 3, "click " + name,
                           [this, &control] { user->Click(control); }});
    }
    choices.push_back({1, "right-click " + name, [this, &control] { user->RightClick(control); }});
}

void Monkey::AddWorld(Choices& choices) {
    const auto pass = [this](int limit) {
        return [this, limit] { Advance(1 + random.Below(limit)); };
    };
    choices.push_back({30, "moments pass", pass(1500)});
    choices.push_back({20, "seconds pass", pass(10'000)});
    choices.push_back({4, "minutes pass", pass(300'000)});
    if (tray.icon) {
        choices.push_back({20, "tray click", [this] { ClickTrayIcon(); }});
        choices.push_back({3, "tray double click", [this] { DoubleClickTrayIcon(); }});
        choices.push_back({10, "tray right click", [this] { RightClickTrayIcon(); }});
    }
    choices.push_back({1, "the clock is set", [this] {
                           clock.Jump(random.Below(7200) - 3600, random.Below(2000) - 1000);
                       }});
    choices.push_back({1, "the machine sleeps", [this] { Suspend(random.Below(3600)); }});
    choices.push_back({1, "kill", [this] { Kill(); }});
    if (random.OneIn(40)) {
        choices.push_back({2, "the session ends", [] { gestures::EndSession(); }});
    }
    if (files.Names(notesFolder).size() > crowded) {
        choices.push_back({4, "thin out", [this] { ThinOut(); }});
    } else if (random.OneIn(30)) {
        choices.push_back({1, "fill up", [this] { FillUp(); }});
    }
}

void Monkey::ThinOut() {
    Kill();
    Restart();
    for (const std::string& name : files.Names(notesFolder)) {
        if (!random.OneIn(4)) {
            files.Remove(notesFolder + '\\' + name);
        }
    }
    StartProgram();
}

void Monkey::FillUp() {
    Kill();
    Restart();
    const std::size_t wanted =
        StandardCode::maximumNotes - static_cast<std::size_t>(random.Below(3));
    for (int number = 1; files.Names(notesFolder).size() < wanted; ++number) {
        PutNote(Note("Filler " + std::to_string(number)));
    }
    StartProgram();
}

// Kills the program from outside: no handler runs and no event comes. Text that was typed more than
// two seconds ago must come back.
void Monkey::Kill() {
    ++kills;
    if (trouble.IsOn() || random.OneIn(2)) {
        EndTrouble();
        Advance(promised);
    }
    const bool isCalm =
        clock.MonotonicMilliseconds() - calmSince >= promised && !trouble.HasBegun();
    const auto texts = runtime->HasEnded() ? std::vector<OpenText>() : OpenTexts();
    Restart();
    StartProgram();
    userDropped = true;
    if (!isCalm || runtime->HasEnded()) {
        return;
    }
    for (const OpenText& note : texts) {
        // An empty new note gets no copy.
        const bool isEmpty = note.text.empty() && !note.wasSaved;
        EXPECT_TRUE(isEmpty || IsInEditor(note) || IsInFile(note))
            << note.title << " has lost: " << note.text;
    }
}

}  // namespace long_tests
