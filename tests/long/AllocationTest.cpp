#include <new>

#include "notes/NoteFile.h"
#include "tests/long/Allocations.h"
#include "tests/long/FaultProgram.h"
#include "tests/long/Scale.h"

// Runs every operation that writes to the disk, the start, and an alarm, and lets one allocation
// fail. The program either reports the failure, saves the open notes and ends, or it goes on.
// Afterwards, each file must have its contents from before or after the operation. If text was
// typed, the next start must show it.

namespace allocations = long_tests::allocations;

namespace {

class AllocationTest : public long_tests::FaultProgram {
  protected:
    std::vector<Operation> AllOperations() {
        std::vector<Operation> all = Operations();
        all.push_back({"start after a kill",
                       [this] {
                           TypeAndWait();
                           Restart();
                           AnswerBoxes();
                       },
                       [this] { StartQuietly(); }, newText});
        all.push_back({"alarm of an open note",
                       [this] {
                           TypeAndWait();
                           user->Click(Editor("Dentist").cmdAlarm);
                       },
                       [this] { Advance(12'000); }, newText});
        return all;
    }

    // Runs the operation, in which the allocation with this number fails.
    static void ActWithFailure(const Operation& operation, int number) {
        allocations::FailAt(number);
        try {
            operation.act();
        } catch (const std::bad_alloc&) {
            // The allocation was in code of the test. The exception ends the program as a kill
            // does.
        }
        allocations::FailAt(0);
    }

    // Like WatchedFiles, but with only the text of each note. An alarm that rings changes other
    // fields, and a program that an error ends saves them too.
    Disk WatchedTexts() const {
        Disk disk = WatchedFiles();
        for (auto& [path, bytes] : disk) {
            StandardCode::NoteRecord note;
            if (bytes && path.find("\\Notes\\") != std::string::npos) {
                NoteFile::Decode(*bytes, note);
                bytes = note.Text;
            }
        }
        return disk;
    }

    void FailAtEachAllocation(const Operation& operation, Outcome& outcome) {
        Prepare(operation);
        const Disk before = WatchedTexts();
        allocations::FailAt(0);
        operation.act();
        outcome.steps = allocations::Count();
        std::vector<Disk> known{before, WatchedTexts()};
        // If an error ends the program, it saves the open notes, before or after the operation.
        Start([] { throw std::bad_alloc(); });
        known.push_back(WatchedTexts());
        Prepare(operation);
        Start([] { throw std::bad_alloc(); });
        known.push_back(WatchedTexts());
        const int stride = static_cast<int>(long_tests::Scaled(1 + outcome.steps / 20, 1));
        for (int number = 1; number <= outcome.steps; number += stride) {
            SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(number) +
                         " fails");
            Prepare(operation);
            ActWithFailure(operation, number);
            Restart();
            ++outcome.cases;
            ExpectOneOf(known, WatchedTexts(), operation, outcome);
            ExpectTextComesBack(operation);
        }
    }
};

}  // namespace

TEST_F(AllocationTest, AFailureAtAnyAllocationOfAnOperationLosesNothing) {
    ForEach(AllOperations(), [this](const Operation& operation, Outcome& outcome) {
        FailAtEachAllocation(operation, outcome);
    });
}
