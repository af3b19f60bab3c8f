#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "forms/Application.h"
#include "forms/Stage.h"
#include "forms/TimerQueue.h"

namespace forms {

// Runs the handlers of the program's forms, its timers and its waits. Stages and gestures use this
// class. Windows use its base class Application.
class Runtime final : public Application {
  public:
    // name is the program's name. It is the caption of the message box that reports a fatal error.
    Runtime(Stage& runtimeStage, std::string name);
    ~Runtime() override;
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    static Runtime& Current();

    // Runs the start-up routine, then handles events until no form is loaded or the program ends.
    void Run(const std::function<void()>& startUp);

    // All calls of handlers from outside go through this function. It keeps the form (which may be
    // null) alive, runs the handler and brings the stage up to date. If the handler does not trap
    // an error, it reports the error and ends the program in an orderly way. Does nothing if the
    // program has ended.
    void Dispatch(Form* form, const std::function<void()>& handler);

    [[noreturn]] void End() override;
    void LetWindowsComeUp() override;

    Stage& stage;
    TimerQueue timers;

    // Called by the stage at the time that was passed to ArmTimer.
    void RunDueTimers();

    // Brings the stage up to date. If many windows are shown at once, most of them appear later, in
    // their order; see Runtime.cpp.
    void Settle();
    // Whether Settle has left windows for later.
    bool HasWaitingWindows() const { return !waiting.empty(); }
    // Brings the stage up to date and calls pump. During a handler, events must be let in only by
    // this function. Throws ProgramEnded if the program has ended.
    void Wait(const std::function<void()>& pump);

  private:
    friend class TimerQueue;

    void ReportAndEnd(const base::RuntimeError& error);
    void EndNow();
    void ShowOrHide(Form& form);
    // Visible and not minimised.
    static bool IsOpen(const Form& form);
    // Shows waiting forms for a short time, if it is time for the next round.
    void ShowWaiting();
    // Tells the stage when the next tick is due. Rearm tells it at the end of the outermost
    // handler, ArmNow at once.
    void Rearm();
    void ArmNow();

    const std::string programName;
    std::deque<std::weak_ptr<Form>> waiting;  // forms that Settle has not shown yet
    std::int64_t nextRound = 0;               // monotonic milliseconds; counts if forms are waiting
    std::optional<std::int64_t> armedFor;
    int depth = 0;      // number of handlers on the stack since the last wait
    int busyCount = 0;  // number of handlers and rounds of ticks on the stack since the last wait
    bool failing = false;  // an error that no handler trapped is being reported
};

}  // namespace forms
