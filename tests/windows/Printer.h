#pragma once

#include <string>

namespace driver {

// A printer of the system, the default one as long as this object lives. What it prints is kept as
// the host's print file.
class Printer {
  public:
    Printer();
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // Waits for a page, and tells the words on it, line by line, without empty lines and the blanks
    // around a line.
    static std::string WaitForPage();
};

}  // namespace driver
