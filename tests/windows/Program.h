#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/windows/Window.h"

namespace driver {

// What a process holds at a moment. Where the system does not tell a number, it is 0.
struct Objects {
    std::size_t windows = 0;   // top-level ones, hidden ones included
    std::size_t children = 0;  // and all in them
    std::size_t handles = 0;   // of files, events, threads and the like
    std::size_t gdi = 0;
    std::size_t user = 0;

    // As many windows, and no more of the rest.
    bool AreNoMoreThan(const Objects& before) const;
    std::string Text() const;
};

// One running copy of the program under test. Killed with this object, unless it has ended.
class Program {
  public:
    Program() = default;
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // path: of the executable. Failure where it does not start.
    void Start(const std::string& path, const std::string& arguments = "");
    bool Runs() const;
    // Waits for the end; the exit code.
    DWORD WaitForEnd();
    void Kill();
    // Closes the program's handle of a mutex: another copy no longer finds it, as if this one ran
    // in another session. Failure if the program has none.
    void CloseMutex(const std::string& name) const;

    // Top-level windows, those on top first, hidden ones included.
    std::vector<Window> Windows() const;
    // Visible top-level windows with this caption and class (any, where it is empty).
    std::vector<Window> Visible(const std::string& caption,
                                const std::string& className = "") const;
    // Waits for a visible one.
    Window WaitFor(const std::string& caption, const std::string& className = "") const;
    void WaitUntilGone(const std::string& caption) const;
    Objects CountObjects() const;
    // Memory that is the program's own, in kilobytes; 0 where the system does not tell.
    std::size_t PrivateKilobytes() const;
    // A menu that is open; a null window where none is.
    Window OpenMenu() const;
    std::string Description() const;

  private:
    void Forget();

    HANDLE process = nullptr;
    DWORD id = 0;
};

// A box of the system: its text, and the buttons by their captions without access keys.
class Box {
  public:
    // Waits for it.
    Box(const Program& boxProgram, const std::string& caption);

    std::string Text() const;
    // Presses a button and waits until the box has gone.
    void Press(const std::string& button) const;

    Window window;
};

}  // namespace driver
