#include <gtest/gtest.h>

#include <optional>

#include "app/Settings.h"
#include "forms/headless/MemoryFiles.h"
#include "portable/Loan.h"

using forms::headless::Killed;
using forms::headless::MemoryFiles;
using portable::FormatOptions;
using portable::Loan;
using portable::Options;
using portable::State;

namespace {

const std::string folder = "E:\\Jotwright";
const std::string path = Loan::PathIn(folder);

Options WithColor(const std::string& color, const std::string& size) {
    return {{{Settings::defaultColor.section, Settings::defaultColor.key}, color},
            {{Settings::defaultFontSize.section, Settings::defaultFontSize.key}, size}};
}

// A registry in memory. It kills the launcher just before the change with the number killAt, so
// that an operation of several changes may be half done.
class MemoryRegistry : public portable::UserRegistry {
  public:
    std::optional<Options> program;
    std::optional<Options> saved;
    State state;
    bool hasLaunchersKey = false;
    int killAt = 0;
    int changes = 0;

    State ReadState() override { return state; }
    void WriteState(const State& newState) override {
        hasLaunchersKey = true;
        Change();
        state.folder = newState.folder;
        Change();
        state = newState;
    }
    Options ReadOptions() override { return program.value_or(Options{}); }
    void WriteOptions(const Options& options) override { Copy(options, program); }
    void SaveOwn() override {
        hasLaunchersKey = true;
        Copy(program, saved);
    }
    void RestoreOwn() override { Copy(saved, program); }
    void Forget() override {
        WriteState({});
        Change();
        saved.reset();
        hasLaunchersKey = false;
    }

  private:
    void Change() {
        if (++changes == killAt) {
            throw Killed();
        }
    }
    void Copy(std::optional<Options> from, std::optional<Options>& to) {
        Change();
        to.reset();
        if (!from) {
            return;
        }
        Change();
        to.emplace();
        for (const auto& [name, value] : *from) {
            Change();
            to->emplace(name, value);
        }
    }
};

class LoanTest : public testing::Test {
  protected:
    LoanTest() {
        files.PutFolder(folder);
        registry.program = own;
    }

    // One run of the program, in which the user chooses these options.
    std::vector<std::string> Run(const Options& chosen) {
        Loan loan(registry, files, folder);
        loan.Begin();
        seen = registry.program.value_or(Options{});
        registry.program = chosen;
        loan.End();
        return loan.messages;
    }

    void ExpectNothingLeft() {
        EXPECT_EQ(registry.program, own);
        EXPECT_FALSE(registry.saved.has_value());
        EXPECT_FALSE(registry.hasLaunchersKey);
    }

    // Expects that the next run finds the options of the killed run or those before it, and ends as
    // usual.
    void ExpectWholeAfterAKill() {
        Loan next(registry, files, folder);
        next.Begin();
        seen = registry.program.value_or(Options{});
        EXPECT_TRUE(seen == first || seen == second);
        next.End();
        EXPECT_TRUE(next.messages.empty());
        EXPECT_EQ(files.Peek(path), FormatOptions(seen, folder));
        ExpectNothingLeft();
    }

    MemoryFiles files;
    MemoryRegistry registry;
    std::optional<Options> own = WithColor("own", "own");
    const Options first = WithColor("1", "1");
    const Options second = WithColor("2", "2");
    Options seen;  // the options that the program found at its start
};

}  // namespace

TEST_F(LoanTest, OptionsGoFromRunToRunAndTheMachineKeepsNothing) {
    EXPECT_TRUE(Run(first).empty());
    EXPECT_TRUE(seen.empty());
    ExpectNothingLeft();
    EXPECT_TRUE(Run(second).empty());
    EXPECT_EQ(seen, first);
    ExpectNothingLeft();
    EXPECT_EQ(files.Peek(path), FormatOptions(second, folder));
}

TEST_F(LoanTest, AUserWithoutOptionsHasNoneAfterwards) {
    own.reset();
    registry.program.reset();
    Run(first);
    ExpectNothingLeft();
}

TEST_F(LoanTest, UnchangedOptionsWriteNothing) {
    files.PutFile(path, FormatOptions(first, folder));
    files.SetReadOnly(path, true);
    EXPECT_TRUE(Run(first).empty());
    files.SetReadOnly(folder, true);
    EXPECT_TRUE(Run(first).empty());
}

TEST_F(LoanTest, AReadOnlyStickWithoutAFileIsNoErrorUntilAnOptionChanges) {
    files.SetReadOnly(folder, true);
    EXPECT_TRUE(Run({}).empty());
    EXPECT_EQ(Run(first).size(), 1U);
    EXPECT_FALSE(files.Peek(path).has_value());
    ExpectNothingLeft();
}

TEST_F(LoanTest, AFullStickKeepsTheOldFileAndSaysSo) {
    files.PutFile(path, FormatOptions(first, folder));
    files.SetFreeSpace(10);
    EXPECT_EQ(Run(second).size(), 1U);
    EXPECT_EQ(files.Peek(path), FormatOptions(first, folder));
    EXPECT_EQ(files.Names(folder).size(), 1U);
    ExpectNothingLeft();
}

TEST_F(LoanTest, ADamagedFileGivesItsGoodOptionsAndACopyStays) {
    const std::string damaged = FormatOptions(first, folder) + "nonsense";
    files.PutFile(path, damaged);
    EXPECT_EQ(Run(second).size(), 1U);
    EXPECT_EQ(seen, first);
    EXPECT_EQ(files.Peek(path + ".damaged"), damaged);
    EXPECT_EQ(files.Peek(path), FormatOptions(second, folder));
}

TEST_F(LoanTest, ADamagedFileThatCannotBeCopiedStays) {
    const std::string damaged = FormatOptions(first, folder) + "nonsense";
    files.PutFile(path, damaged);
    files.SetReadOnly(folder, true);
    EXPECT_EQ(Run(second).size(), 1U);
    EXPECT_EQ(seen, first);
    EXPECT_EQ(files.Peek(path), damaged);
    ExpectNothingLeft();
}

TEST_F(LoanTest, ADamagedFileThatCouldNotBeCopiedStaysAfterAKill) {
    const std::string damaged = FormatOptions(first, folder) + "nonsense";
    files.PutFile(path, damaged);
    files.SetReadOnly(folder, true);
    Loan killed(registry, files, folder);
    killed.Begin();
    registry.program = second;
    files.SetReadOnly(folder, false);
    EXPECT_EQ(Run(second).size(), 1U);
    EXPECT_EQ(files.Peek(path + ".damaged"), damaged);
    ExpectNothingLeft();
}

TEST_F(LoanTest, AFileThatCouldNotBeReadStaysAfterAKill) {
    files.PutFile(path, FormatOptions(first, folder));
    files.SetDenied(path, true);
    Loan killed(registry, files, folder);
    killed.Begin();
    registry.program = second;
    files.SetDenied(path, false);
    EXPECT_TRUE(Run(first).empty());
    EXPECT_EQ(seen, first);
    EXPECT_EQ(files.Peek(path), FormatOptions(first, folder));
    ExpectNothingLeft();
}

TEST_F(LoanTest, AFileThatCannotBeReadStays) {
    files.PutFile(path, FormatOptions(first, folder));
    files.SetDenied(path, true);
    EXPECT_EQ(Run(second).size(), 1U);
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(files.Peek(path), FormatOptions(first, folder));
    ExpectNothingLeft();
}

TEST_F(LoanTest, AfterAKillWhileTheProgramRanItsOptionsAreKept) {
    Loan killed(registry, files, folder);
    killed.Begin();
    registry.program = second;
    Run(second);
    EXPECT_EQ(seen, second);
    ExpectNothingLeft();
}

TEST_F(LoanTest, AStickWithAnotherLetterIsTheSameCopy) {
    Loan killed(registry, files, "D:\\Jotwright");
    killed.Begin();
    registry.program = second;
    Run(second);
    EXPECT_EQ(seen, second);
}

TEST_F(LoanTest, AnotherCopyFinishesForAKilledOne) {
    const std::string other = "E:\\Other";
    files.PutFolder(other);
    files.PutFile(path, FormatOptions(first, folder));
    Loan killed(registry, files, other);
    killed.Begin();
    registry.program = second;
    Run(first);
    EXPECT_EQ(seen, first);
    EXPECT_EQ(files.Peek(Loan::PathIn(other)), FormatOptions(second, other));
    ExpectNothingLeft();
}

TEST_F(LoanTest, AKillAtAnyChangeOfTheRegistryLosesNothing) {
    files.PutFile(path, FormatOptions(first, folder));
    const MemoryFiles filesBefore = files;
    const MemoryRegistry registryBefore = registry;
    Run(second);
    const int changes = registry.changes;
    ASSERT_GT(changes, 20);
    for (int step = 1; step <= changes; ++step) {
        SCOPED_TRACE(step);
        files = filesBefore;
        registry = registryBefore;
        registry.killAt = step;
        EXPECT_THROW(Run(second), Killed);
        ExpectWholeAfterAKill();
    }
}

TEST_F(LoanTest, AKillAtAnyStepOfTheDiskLosesNothing) {
    files.PutFile(path, FormatOptions(first, folder));
    const MemoryFiles filesBefore = files;
    const MemoryRegistry registryBefore = registry;
    files.ClearFaults();
    Run(second);
    const int steps = files.Steps();
    ASSERT_GE(steps, 5);
    using Moment = MemoryFiles::Moment;
    for (const Moment moment : {Moment::Before, Moment::Middle, Moment::After}) {
        for (int step = 1; step <= steps; ++step) {
            SCOPED_TRACE(step);
            files = filesBefore;
            registry = registryBefore;
            files.KillAt(step, moment);
            EXPECT_THROW(Run(second), Killed);
            files.Restart();
            ExpectWholeAfterAKill();
        }
    }
}
