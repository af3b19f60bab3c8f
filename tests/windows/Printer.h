#pragma once

#include <string>

namespace driver {

// Adds a printer to the system and makes it the default one while the object exists. Its output is
// kept in the host's print file.
class Printer {
  public:
    Printer();
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // Waits for a page, and returns its words line by line, without empty lines and without blanks
    // around a line.
    static std::string WaitForPage();
};

}  // namespace driver
