#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "forms/Application.h"
#include "forms/Stage.h"
#include "forms/TimerQueue.h"

namespace forms {

// Runs the handlers of the program's forms, its timers and its waits. Stages and gestures use it;
// windows use its base Application.
class Runtime final : public Application {
  public:
    // name: the program's name, which is the caption of the report of a fatal error.
    Runtime(Stage& runtimeStage, std::string name);
    ~Runtime() override;
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    static Runtime& Current();

    // Runs the start-up routine, then events until no form is loaded or the program ends.
    void Run(const std::function<void()>& startUp);

    // The only entry from outside. Keeps the form (may be null) alive, runs the handler and brings
    // the stage up to date. Reports an error that the handler did not trap, and ends the program in
    // order. Does nothing once the program has ended.
    void Dispatch(Form* form, const std::function<void()>& handler);

    [[noreturn]] void End() override;

    Stage& stage;
    TimerQueue timers;

    // Called by the stage at the time that ArmTimer named.
    void RunDueTimers();

    // Brings the stage up to date.
    void Settle();
    // The only way to let events in during a handler: brings the stage up to date and calls pump.
    // Throws ProgramEnded if the program has ended by then.
    void Wait(const std::function<void()>& pump);

  private:
    friend class TimerQueue;

    void ReportAndEnd(const base::RuntimeError& error);
    void EndNow();
    // Tells the stage when the next tick is due: now, or at the end of the outermost handler.
    void Rearm();
    void ArmNow();

    const std::string programName;
    std::optional<std::int64_t> armedFor;
    int depth = 0;         // handlers on the stack since the last wait
    int busyCount = 0;     // handlers and rounds of ticks on the stack since the last wait
    bool failing = false;  // reporting an error that no handler trapped
};

}  // namespace forms
