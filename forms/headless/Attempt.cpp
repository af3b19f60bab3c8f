#include "forms/headless/Attempt.h"

#include "forms/Runtime.h"

namespace forms::headless {

bool Attempt::Reaches(Form& form) const {
    const std::string blocking = stage.ReasonForBlocking();
    return Needs(Runtime::Exists() && !Runtime::Current().HasEnded(), "the program has ended") &&
           Needs(form.IsLoaded(), "the form is not loaded") && Needs(blocking.empty(), blocking) &&
           Needs(form.IsVisible() && form.IsShownOnStage() && HeadlessStage::WindowOf(form).shown,
                 "the form is not shown") &&
           Needs(form.IsUsable() && HeadlessStage::WindowOf(form).usable,
                 "a modal form shuts its form off");
}

bool Attempt::Reaches(const Control& control) const {
    return Reaches(control.form) &&
           Needs(control.form.windowState() != WindowState::Minimized, "its form is minimised") &&
           Needs(control.IsEffectivelyVisible(), "it is hidden") &&
           Needs(control.IsEffectivelyEnabled(), "it is disabled");
}

}  // namespace forms::headless
