#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/Report.h"
#include "bench/Rest.h"
#include "bench/Scenarios.h"
#include "bench/Subject.h"
#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace bench {

using driver::Window;

namespace {

constexpr long long second = 1000;             // milliseconds
constexpr long long untilFirst = 12 * second;  // time for the start and for closing notes
constexpr long long distance = 4 * second;     // long enough for one alarm to end

std::filesystem::path PathOf(const Subject& subject, const std::string& name) {
    return forms::win32::Wide(subject.Folder() + '\\' + name);
}

// Milliseconds since 1601 on the clock of the system.
long long SystemNow() {
    FILETIME now{};
    ::GetSystemTimePreciseAsFileTime(&now);
    constexpr long long ticksPerMillisecond = 10'000;
    return ((static_cast<long long>(now.dwHighDateTime) << 32) | now.dwLowDateTime) /
           ticksPerMillisecond;
}

// The date and the time of day as a note's file has them.
std::string DateAndTime(long long milliseconds) {
    const long long ticks = milliseconds * 10'000;
    const FILETIME file{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    FILETIME local{};
    SYSTEMTIME time{};
    ::FileTimeToLocalFileTime(&file, &local);
    ::FileTimeToSystemTime(&local, &time);
    char text[64]{};
    std::snprintf(text, sizeof text, "#%04u-%02u-%02u#,#%02u:%02u:%02u#", unsigned{time.wYear},
                  unsigned{time.wMonth}, unsigned{time.wDay}, unsigned{time.wHour},
                  unsigned{time.wMinute}, unsigned{time.wSecond});
    return text;
}

void WriteNote(const std::filesystem::path& folder, int number, long long due) {
    const std::string title = "Note " + std::to_string(number);
    std::ofstream file(folder / (title + ".txt"), std::ios::binary);
    file << '"' << title << "\",\"text\"," << DateAndTime(due) << ",1,12,\"1\",1,\"yes\"\r\n";
}

// The times when sounds began, in milliseconds since 1601.
class Sounds {
  public:
    explicit Sounds(std::filesystem::path file) : path(std::move(file)) {}

    // Waits for a sound that begins at this time or later, and returns when it began.
    long long BeginAfter(long long time) const {
        long long begun = 0;
        Await("sound of the alarm", [&] {
            std::ifstream file(path);
            double seconds = 0;
            while (begun < time && file >> seconds) {
                constexpr long long from1601To1970 = 11'644'473'600;
                begun = static_cast<long long>(seconds * second) + from1601To1970 * second;
            }
            return begun >= time;
        });
        return begun;
    }

  private:
    std::filesystem::path path;
};

void ClickBox(const std::string& caption, int button) {
    Window box;
    Await(caption, [&] {
        box = Subject::FindBox(caption);
        return box && IsAtRest(box);
    });
    Window(::GetDlgItem(box.handle, button)).Click();
    Await(caption + " closes", [&] { return !box.Exists(); });
}

// If the note's editor is closed, the alarm opens a display. If it is open, the editor comes to the
// front, with a box.
void MeasureOne(const Subject& subject, const Sounds& sounds, int number, long long due,
                bool isOpen) {
    const long long early = 200;
    Await("second of the alarm", [&] { return SystemNow() >= due - early; });
    const long long start = SystemNow();
    const double until = Measure(
        "alarm", [] {},
        [&] {
            const Window note = subject.Note(number);
            return note && IsAtRest(note);
        });
    Report(isOpen ? "alarm-editor" : "alarm-display", until + static_cast<double>(start - due));
    Report(isOpen ? "alarm-editor-sound" : "alarm-display-sound",
           static_cast<double>(sounds.BeginAfter(due) - due));
    if (isOpen) {
        ClickBox("Jotwright Audio Alarm", IDOK);
    } else {
        subject.Note(number).CloseBox();
        ClickBox(" Erase Note?", IDNO);
    }
}

}  // namespace

void RingAlarms(const Settings& settings) {
    const std::string& path = settings.executable;
    const std::filesystem::path folder =
        forms::win32::Wide(path.substr(0, path.rfind('\\')) + "\\Notes");
    const int notes = 2 * settings.times;
    const long long first = SystemNow() / second * second + untilFirst;
    for (int number = 1; number <= notes; ++number) {
        WriteNote(folder, number, first + (number - 1) * distance);
    }
    const Subject subject(path, notes, "");
    subject.AwaitStart();
    for (int number = 1; number <= settings.times; ++number) {
        const Window note = subject.Note(number);
        note.CloseBox();
        Await("close the note", [&] { return !note.Exists(); });
    }
    const Sounds sounds(PathOf(subject, "sounds"));
    for (int number = 1; number <= notes; ++number) {
        MeasureOne(subject, sounds, number, first + (number - 1) * distance,
                   number > settings.times);
    }
}

}  // namespace bench
