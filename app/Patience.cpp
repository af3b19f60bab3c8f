#include "app/Patience.h"

#include "app/StandardCode.h"
#include "forms/Application.h"
#include "forms/Devices.h"

namespace Patience {

namespace {

// In milliseconds.
constexpr int pause = 20;
constexpr int timeForUser = 1500;
constexpr int timeForTicks = 200;

}  // namespace

bool Wait() {
    const forms::Application::Action action = forms::Application::Exists()
                                                  ? forms::Application::Current().CurrentAction()
                                                  : forms::Application::Action{};
    StandardCode::RetryTime& time = StandardCode::Shared().TimeToRetry;
    if (time.action != action.number) {
        time = {action.number, action.isUsers ? timeForUser : timeForTicks};
    }
    if (time.left < pause) {
        return false;
    }
    time.left -= pause;
    forms::Machine().system->Pause(pause);
    return true;
}

}  // namespace Patience
