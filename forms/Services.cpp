#include "forms/Services.h"

#include "forms/Runtime.h"

namespace forms {

// The analyzer cannot see that every device is set before the runtime starts.
// NOLINTBEGIN(clang-analyzer-core.CallAndMessage)
base::DateTime Now() {
    if (Runtime::Exists()) {
        if (const auto moment = Runtime::Current().timers.Moment()) {
            return *moment;
        }
    }
    return Machine().clock->Now();
}

base::DateTime Today() { return Now().DateOnly(); }

std::string ApplicationPath(const std::string& relative) {
    return Machine().system->ApplicationFolder() + relative;
}
// NOLINTEND(clang-analyzer-core.CallAndMessage)

base::NumberFormat UserNumbers() {
    Locale* locale = Machine().locale;
    return locale != nullptr ? locale->Numbers() : base::NumberFormat{};
}

bool IsNumeric(std::string_view text) { return base::IsNumeric(text, UserNumbers()); }

std::int16_t ToInteger16(std::string_view text) { return base::ToInteger16(text, UserNumbers()); }

Picture LoadPicture(const std::string& path) { return Machine().pictures->Load(path); }

void SetMousePointer(MousePointer pointer) { Runtime::Current().stage.SetMousePointer(pointer); }

bool BeginPrinting() {
    bool hasBegun = false;
    std::optional<base::RuntimeError> failure;
    Runtime::Current().Wait([&] {
        try {
            hasBegun = Machine().printer->BeginDocument();
        } catch (const base::RuntimeError& error) {
            failure = error;
        }
    });
    if (failure) {
        throw base::RuntimeError(*failure);
    }
    return hasBegun;
}

std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request) {
    Runtime& runtime = Runtime::Current();
    std::optional<std::string> chosen;
    runtime.Wait([&] { chosen = runtime.stage.ShowOpenDialog(form, request); });
    return chosen;
}

}  // namespace forms
