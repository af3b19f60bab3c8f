#include <windows.h>
#include <shellapi.h>

#include <algorithm>

#include "bench/Report.h"
#include "bench/Rest.h"
#include "bench/Scenarios.h"
#include "bench/Subject.h"
#include "tests/windows/Wait.h"

namespace bench {

using driver::Window;

namespace {

constexpr int slots = 100;  // with more files, a box reports an error
constexpr const char* errorBox = "Error Loading Notes Array";

bool HasTrayIcon(const Window& owner) {
    NOTIFYICONDATAW nothingNew{};
    nothingNew.cbSize = sizeof nothingNew;
    nothingNew.hWnd = owner.handle;
    nothingNew.uID = 1;
    return ::Shell_NotifyIconW(NIM_MODIFY, &nothingNew) != 0;
}

// Waits until all notes are there. Returns the longest time in which the program did not answer.
double AwaitNotes(const Subject& subject, int notes) {
    constexpr double limit = 900'000;  // milliseconds; for many thousands of notes
    const Window main = subject.Main();
    const double start = Now();
    double longest = 0;
    double nextCount = 0;
    for (;;) {
        const double before = Now();
        Answers(main);
        const double now = Now();
        longest = std::max(longest, now - before);
        if (now >= nextCount) {
            if (subject.CountMinimised() == notes) {
                return longest;
            }
            // Counting enumerates all windows. Count rarely enough that it takes at most a
            // twentieth of the time.
            constexpr double share = 20;
            nextCount = Now() + share * (Now() - now);
        }
        if (now - start > limit) {
            throw driver::Failure("start: the notes are not there after 15 minutes");
        }
        ::Sleep(5);
    }
}

void MeasurePanel(const Subject& subject, int notes) {
    subject.ShowMain();
    const Window button = subject.Main().Button("Notes &Control Panel");
    const auto press = [&] { button.Click(); };
    const auto isShown = [&] { return subject.PanelLists(notes); };
    const bool hasBox = notes > slots && !subject.IsBaseline();
    Report("panel", hasBox ? Subject::MeasureWithBox("panel", press, errorBox, IDOK, isShown)
                           : Measure("panel", press, isShown));
}

}  // namespace

void StartWithMany(const Settings& settings) {
    const double start = Now();
    const Subject subject(settings.executable, settings.notes, settings.children);
    if (!subject.IsBaseline()) {
        Await("start: the main window", [&] {
            Subject::AnswerIfOpen(errorBox);
            Subject::AnswerIfOpen("Jotwright: Maximum Notes Reached");
            return IsAtRest(subject.Main()) && HasTrayIcon(subject.Main());
        });
        Report("start-main", Now() - start);
    }
    const double longest = AwaitNotes(subject, settings.notes);
    const double splash = subject.IsBaseline() ? 0 : 1000;
    Report("start-note", (Now() - start - splash) / settings.notes);
    if (!subject.IsBaseline()) {
        Report("start-no-answer", longest);
    }
    MeasurePanel(subject, settings.notes);
}

}  // namespace bench
