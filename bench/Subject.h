#pragma once

#include <functional>
#include <string>

#include "tests/windows/Program.h"

namespace bench {

// A running copy of the program or of bench/ActionsBaseline.cpp, which bench/actions measures. The
// windows of both have the same captions and differ only in their class. Only one copy may run at a
// time.
class Subject {
  public:
    // Starts the executable and returns at once. If children is empty, the executable must be the
    // program. Otherwise it must be the baseline, and children is the number of child windows that
    // each note gets; for "0", see ActionsBaseline.cpp.
    Subject(const std::string& path, int noteCount, const std::string& children);

    bool IsBaseline() const { return isBaseline; }
    // The executable's folder.
    std::string Folder() const;

    // The top-level window with this caption and a title bar. A null window if there is none.
    driver::Window Find(const std::string& caption) const { return Find(caption, true); }
    driver::Window Main() const { return Find("Jotwright"); }
    driver::Window Note(int number) const { return Find("Note " + std::to_string(number)); }
    driver::Window Panel() const { return Find("Notes Control Panel"); }
    static driver::Window FindBox(const std::string& caption);
    // The list in the panel. A null window if there is no panel.
    driver::Window List() const;
    // Whether the panel lists this many rows and is at rest.
    bool PanelLists(int rows) const;
    // The number of notes that are minimised.
    int CountMinimised() const;
    // Whether the splash screen is there. It has the caption of the main window, but no title bar.
    bool HasSplash() const { return static_cast<bool>(Find("Jotwright", false)); }

    // Waits until the main window is at rest and all notes are open, minimised. No box may open.
    void AwaitStart() const;
    // Shows the main window through its icon and waits until it is at rest.
    void ShowMain() const;
    // Clicks a button of a window and waits until done is true. Returns the milliseconds.
    static double Click(const driver::Window& window, const std::string& button,
                        const std::function<bool()>& done);
    // As Measure(), for an action that asks a question in a box. Waits until the box is at rest,
    // then clicks the button with this ID and waits until done is true. Returns the sum of both
    // times.
    static double MeasureWithBox(const std::string& action, const std::function<void()>& press,
                                 const std::string& caption, int button,
                                 const std::function<bool()>& done);
    // If the box is open and at rest, clicks its first button. Does not wait for the box to open.
    static void AnswerIfOpen(const std::string& caption);

    // Clicks Exit and waits until the process has ended. Returns the milliseconds.
    double MeasureExit();

  private:
    driver::Window Find(const std::string& caption, bool hasTitleBar) const;

    std::string executable;
    int notes;
    bool isBaseline;
    driver::Program program;
};

}  // namespace bench
