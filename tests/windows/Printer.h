#pragma once

#include <string>
#include <vector>

namespace driver {

// Adds a printer to the system and makes it the default printer while the object exists. The output
// goes to the host's print file.
class Printer {
  public:
    Printer();
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    struct Line {
        double top;     // points below the edge of the paper
        double height;  // points
        std::string words;
    };
    // Waits for a page, and returns the lines on it.
    static std::vector<Line> WaitForPage();
};

}  // namespace driver
