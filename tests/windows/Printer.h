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
    using Page = std::vector<Line>;
    // Waits until a document is printed, and returns the lines of each page.
    static std::vector<Page> WaitForPages();
    // Like WaitForPages, for a document of one page. Raises Failure if there are more.
    static Page WaitForPage();
};

}  // namespace driver
