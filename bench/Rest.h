#pragma once

#include <functional>
#include <string>

#include "tests/windows/Window.h"

// Measures how long an action of the user takes, from the press until nothing is left to do.
namespace bench {

// Milliseconds of the performance counter.
double Now();

// Sends a message. Returns true when the program has handled it, or false after a minute. A program
// that is busy with an action does not handle messages.
bool Answers(const driver::Window& window);

// Whether the window is visible and not minimised, its program answers messages, and neither the
// window nor one of its visible children has an area to paint.
bool IsAtRest(const driver::Window& window);

// Calls press and waits until done has become true and has stayed true for a moment, in which late
// messages of the window manager arrive. Returns the milliseconds from the press until done became
// true. Raises Failure with the name of the action if done is not true within a minute.
double Measure(const std::string& action, const std::function<void()>& press,
               const std::function<bool()>& done);

// Waits until done is true, without measuring. Raises Failure as Measure() does.
void Await(const std::string& action, const std::function<bool()>& done);

}  // namespace bench
