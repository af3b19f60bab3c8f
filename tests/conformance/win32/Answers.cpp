#include "tests/conformance/win32/Answers.h"

#include <algorithm>

#include "forms/win32/FormWindow.h"
#include "tests/conformance/win32/NativeWindows.h"

namespace conformance {

using namespace forms;

namespace {

constexpr UINT_PTR tickTimer = 1;
constexpr UINT_PTR laterTimer = 2;
constexpr UINT tickInterval = 10;   // milliseconds
constexpr UINT laterInterval = 50;  // milliseconds
// The number of ticks in a row for which a window may be open before it counts as unexpected. Ticks
// come only while the program waits, so a slow action or a stopped process uses up none of them.
constexpr int patience = 400;

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

}  // namespace

bool IsOnScreen(const Form& form) {
    const win32::FormWindow* shown = win32::FormWindow::Existing(form);
    return shown != nullptr && shown->IsShown();
}

Answers::Answers(const std::function<bool()>& stayOpenUntil) : stayUntil(stayOpenUntil) {
    window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                               ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetTimer(window, tickTimer, tickInterval,
               [](HWND timerWindow, UINT, UINT_PTR, DWORD) CALLBACK { Of(timerWindow).OnTick(); });
}

Answers::~Answers() {
    ::KillTimer(window, tickTimer);
    ::DestroyWindow(window);
}

Answers& Answers::Of(HWND timerWindow) {
    return *reinterpret_cast<Answers*>(::GetWindowLongPtrW(timerWindow, GWLP_USERDATA));
}

void Answers::Verify() {
    for (const Expected& never : expected) {
        ADD_FAILURE() << "never came: "
                      << (never.kind == Expected::Kind::Box     ? "box " + never.text
                          : never.kind == Expected::Kind::Modal ? "a modal form"
                                                                : "a pop-up menu");
    }
    expected.clear();
}

void Answers::Later(Script script) {
    later = std::move(script);
    ::SetTimer(window, laterTimer, laterInterval,
               [](HWND timerWindow, UINT, UINT_PTR id, DWORD) CALLBACK {
                   if (Of(timerWindow).HasStayedOpen()) {
                       ::KillTimer(timerWindow, id);
                       Of(timerWindow).later();
                   }
               });
}

void Answers::PressKey(WPARAM key) const { ::PostMessageW(window, WM_KEYDOWN, key, 1); }

bool Answers::HasStayedOpen() {
    if (!stayUntil || stayUntil()) {
        looks = 0;
        return true;
    }
    if (++looks < Stand::mostLooks) {
        return false;
    }
    ADD_FAILURE() << "what was waited for never happened";
    looks = 0;
    return true;
}

bool Answers::NextIs(Expected::Kind kind) const {
    return !expected.empty() && expected.front().kind == kind;
}

Expected Answers::TakeNext() {
    Expected next = std::move(expected.front());
    expected.pop_front();
    return next;
}

void Answers::OnTick() {
    if (AnswerBox() || AnswerModal() || AnswerPopup()) {
        unexpectedFor = 0;
        return;
    }
    ReportUnexpected();
}

bool Answers::AnswerBox() {
    if (!NextIs(Expected::Kind::Box)) {
        return false;
    }
    for (HWND box : VisibleWindowsOfClass(L"#32770")) {
        if (std::find(knownBoxes.begin(), knownBoxes.end(), box) != knownBoxes.end()) {
            continue;
        }
        if (!HasStayedOpen()) {
            return true;
        }
        const Expected wanted = TakeNext();
        knownBoxes.push_back(box);
        EXPECT_EQ(TextOf(box), wanted.caption);
        bool hasText = false;
        for (HWND child : ChildrenOfClass(box, L"Static")) {
            hasText = hasText || WithoutReturns(TextOf(child)) == WithoutReturns(wanted.text);
        }
        EXPECT_TRUE(hasText) << "the box does not say: " << wanted.text;
        const bool asks = ::GetDlgItem(box, IDYES) != nullptr;
        EXPECT_EQ(asks, wanted.buttons == BoxButtons::YesNo);
        if (wanted.during) {
            wanted.during();
        }
        PressButton(box, wanted.answer);
        std::erase(knownBoxes, box);
        return true;
    }
    return false;
}

void Answers::PressButton(HWND box, BoxResult answer) {
    if (::IsWindow(box) == 0) {
        return;  // the program has ended
    }
    HWND button = nullptr;
    if (answer == BoxResult::Ok) {
        const std::vector<HWND> buttons = ChildrenOfClass(box, L"Button");
        button = buttons.empty() ? nullptr : buttons.front();
    } else {
        button = ::GetDlgItem(box, answer == BoxResult::Yes ? IDYES : IDNO);
    }
    EXPECT_TRUE(button != nullptr);
    ::SendMessageW(box, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(button), BN_CLICKED),
                   reinterpret_cast<LPARAM>(button));
}

bool Answers::AnswerModal() {
    if (!NextIs(Expected::Kind::Modal) || !Runtime::Exists()) {
        return false;
    }
    for (const auto& form : Runtime::Current().LoadedForms()) {
        const bool isNew =
            std::find(knownModals.begin(), knownModals.end(), form.get()) == knownModals.end();
        if (!isNew || !form->IsModal() || !IsOnScreen(*form) || !expected.front().matches(*form)) {
            continue;
        }
        if (!HasStayedOpen()) {
            return true;
        }
        const auto pin = form;
        const Expected wanted = TakeNext();
        knownModals.push_back(pin.get());
        wanted.script(*pin);
        std::erase(knownModals, pin.get());
        if (pin->IsVisible() && !Runtime::Current().HasEnded()) {
            ADD_FAILURE() << "the script has ended and " << pin->name << " is still open";
            Runtime::Current().Dispatch(pin.get(), [&pin] { pin->Hide(); });
        }
        return true;
    }
    return false;
}

bool Answers::AnswerPopup() {
    if (!NextIs(Expected::Kind::Popup) || VisibleWindowsOfClass(L"#32768").empty()) {
        return false;
    }
    if (!HasStayedOpen()) {
        return true;
    }
    const Expected wanted = TakeNext();
    if (wanted.during) {
        wanted.during();
    }
    ChooseByKeys(wanted);
    return true;
}

void Answers::ChooseByKeys(const Expected& popup) const {
    if (popup.entry == nullptr) {
        PressKey(VK_ESCAPE);
        return;
    }
    for (const Menu* entry : popup.menu->entries) {
        if (entry->visible && !entry->IsSeparator()) {
            PressKey(VK_DOWN);
        }
        if (entry == popup.entry) {
            break;
        }
    }
    PressKey(VK_RETURN);
}

void Answers::ReportUnexpected() {
    HWND strangeBox = nullptr;
    for (HWND box : VisibleWindowsOfClass(L"#32770")) {
        if (std::find(knownBoxes.begin(), knownBoxes.end(), box) == knownBoxes.end()) {
            strangeBox = box;
        }
    }
    std::shared_ptr<Form> strangeForm;
    if (Runtime::Exists()) {
        for (const auto& form : Runtime::Current().LoadedForms()) {
            if (form->IsModal() && IsOnScreen(*form) &&
                std::find(knownModals.begin(), knownModals.end(), form.get()) ==
                    knownModals.end()) {
                strangeForm = form;
            }
        }
    }
    if (strangeBox == nullptr && strangeForm == nullptr) {
        unexpectedFor = 0;
        return;
    }
    if (++unexpectedFor < patience) {
        return;
    }
    unexpectedFor = 0;
    if (strangeBox != nullptr) {
        ADD_FAILURE() << "unexpected box " << TextOf(strangeBox);
        ::EndDialog(strangeBox, IDCANCEL);
    } else {
        ADD_FAILURE() << "unexpected modal " << strangeForm->name;
        Runtime::Current().Dispatch(strangeForm.get(), [&strangeForm] { strangeForm->Hide(); });
    }
}

}  // namespace conformance
