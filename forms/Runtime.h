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

// Runs handlers and the ticks of timers, and lets events in while a handler waits. Stages and
// gestures use this class. Windows use its base class Application.
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

    // Runs a handler. Every gesture and every tick goes through this function. It keeps the form
    // (which may be null) alive until the handler returns, and brings the stage up to date after
    // the outermost handler. If the handler throws an error, Dispatch reports the error and ends
    // the program in an orderly way. Does nothing if the program has ended or if such an error is
    // being reported.
    void Dispatch(Form* form, const std::function<void()>& handler);

    [[noreturn]] void End() override;
    void LetWindowsComeUp() override;
    void RunLater(const std::function<void()>& work) override;

    Stage& stage;
    TimerQueue timers;

    // The stage calls this at the time that was passed to ArmTimer. Runs the ticks that are due and
    // shows waiting forms.
    void RunDueTimers();

    // Brings the stage up to date. If many windows are to be shown, most of them appear later, in
    // their order; see Runtime.cpp.
    void Settle();
    // Whether Settle has left windows to be shown later, or RunLater has work to run.
    bool HasWaitingWindows() const { return !waiting.empty(); }
    // Brings the stage up to date and calls pump, which lets events in until the wait is over. A
    // handler must let events in only through this function. Throws ProgramEnded if the program has
    // ended before or during the wait.
    void Wait(const std::function<void()>& pump);

  private:
    friend class TimerQueue;

    void ReportAndEnd(const base::RuntimeError& error);
    void EndNow();
    void ShowOrHide(Form& form);
    // Visible and not minimised.
    static bool IsOpen(const Form& form);
    void AddToRounds(std::function<void()> work);
    // If the next round of windows is due, does what waits until the round's time is over.
    void ShowWaiting();
    // Both functions arm the stage's timer for the next tick or the next round of windows. Rearm
    // does nothing while a handler or a round of ticks is running: the timer is armed at its end.
    void Rearm();
    void ArmNow();

    const std::string programName;
    std::deque<std::function<void()>> waiting;  // for the next rounds of windows
    std::int64_t nextRound = 0;  // monotonic milliseconds; used only if something waits
    std::optional<std::int64_t> armedFor;
    int depth = 0;      // number of handlers on the stack since the last wait
    int busyCount = 0;  // number of handlers and rounds of ticks on the stack since the last wait
    bool failing = false;  // an error that no handler trapped is being reported
};

}  // namespace forms
