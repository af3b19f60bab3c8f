#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "alarms/frmSpecialAlarms.h"
#include "tests/support/WholeProgram.h"

namespace long_tests {

// Runs every operation that writes to the disk, each in a program that was just started with the
// notes Dentist and Other. A test disturbs the operation, and compares the files and the text of
// the next start with those of an undisturbed run.
class FaultProgram : public testing_support::WholeProgram {
  protected:
    using Disk = std::map<std::string, std::optional<std::string>>;

    struct Operation {
        const char* name;
        std::function<void()> prepare;  // runs after the program has started
        std::function<void()> act;
        // The text that the user has typed into the editor of Dentist, or nothing.
        std::string typed{};
        bool erases = false;  // the note may be gone afterwards
        bool reports = true;  // errors are shown in the box of the save
    };

    struct Outcome {
        int steps = 0;
        int cases = 0;
        int old = 0;
        int renewed = 0;
        int erased = 0;
    };

    void SetUp() override;

    std::vector<Operation> Operations();
    // Starts the program on a new machine and prepares the operation.
    void Prepare(const Operation& operation);
    // Starts the program, and answers its boxes.
    void StartAgain();
    void AnswerBoxes();
    // Types newText into Dentist, and waits for the recovery copy.
    void TypeAndWait();

    Disk WatchedFiles() const;
    // Expects each file to hold its bytes from one of the known disks. The first known disk is the
    // disk before the operation.
    void ExpectOneOf(const std::vector<Disk>& known, const Disk& found, const Operation& operation,
                     Outcome& outcome);
    // Starts the program, and expects the typed text.
    void ExpectTextComesBack(const Operation& operation);

    template <class Try>
    void ForEach(const std::vector<Operation>& operations, Try attempt) {
        std::printf("%-32s %6s %6s %6s %6s %7s\n", "operation", "steps", "cases", "old", "new",
                    "erased");
        int total = 0;
        for (const Operation& operation : operations) {
            Outcome outcome;
            attempt(operation, outcome);
            std::printf("%-32s %6d %6d %6d %6d %7d\n", operation.name, outcome.steps, outcome.cases,
                        outcome.old, outcome.renewed, outcome.erased);
            total += outcome.cases;
        }
        std::printf("%d cases\n", total);
    }

    std::string newText = "brand new";  // the text that the user types

  private:
    frmNote& TypeInto(const std::string& title, const std::string& text);
    frmDisplayNote& ShowDisplay();
    frmSpecialAlarms& ChangeSpecialAlarms(bool withFile);
    void ExpectNoLeftovers();

    forms::headless::MemoryFiles shipped;
    forms::BoxResult answer = forms::BoxResult::Yes;
};

}  // namespace long_tests
