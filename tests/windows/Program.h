#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/windows/Window.h"

namespace driver {

// The objects of a process at one moment. A number that the system does not report is 0.
struct Objects {
    std::size_t windows = 0;   // top-level windows, including hidden ones
    std::size_t children = 0;  // all windows inside them
    std::size_t handles = 0;   // of files, events, threads and others
    std::size_t gdi = 0;
    std::size_t user = 0;

    // Whether there are exactly as many windows as before, and no more objects of the other kinds.
    bool AreNoMoreThan(const Objects& before) const;
    std::string Text() const;
};

// One running copy of the program under test. The destructor kills it if it still runs.
class Program {
  public:
    Program() = default;
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // path is the path of the executable. Raises Failure if it does not start.
    void Start(const std::string& path, const std::string& arguments = "");
    bool Runs() const;
    // Waits for the end of the program and returns the exit code.
    DWORD WaitForEnd();
    void Kill();
    // False before Windows 10.
    static bool CanCloseMutexes();
    // Closes the program's handle of a mutex, so that another copy does not find it, as if this
    // copy ran in another session. Raises Failure if the program has no such handle. Call it only
    // if CanCloseMutexes() is true.
    void CloseMutex(const std::string& name) const;

    // All top-level windows, the topmost first, including hidden ones.
    std::vector<Window> Windows() const;
    // The same, after the program has handled the messages that it got before. Waits for that only
    // if a window is visible. Raises Failure if the program does not answer.
    std::vector<Window> SettledWindows() const;
    // Visible top-level windows with this caption and this class. An empty class matches any class.
    std::vector<Window> Visible(const std::string& caption,
                                const std::string& className = "") const;
    // Waits until such a window is visible.
    Window WaitFor(const std::string& caption, const std::string& className = "") const;
    void WaitUntilGone(const std::string& caption) const;
    Objects CountObjects() const;
    // The memory that belongs only to the program, in kilobytes. 0 if the system does not report
    // it.
    std::size_t PrivateKilobytes() const;
    // The open menu. A null window if there is none.
    Window OpenMenu() const;
    std::string Description() const;

  private:
    void Forget();

    HANDLE process = nullptr;
    DWORD id = 0;
};

// A message box: its text, and its buttons by their captions without access keys.
class Box {
  public:
    // Waits for the box.
    Box(const Program& boxProgram, const std::string& caption);

    std::string Text() const;
    // Clicks a button and waits until the box has closed.
    void Click(const std::string& button) const;

    Window window;
};

}  // namespace driver
