// Measures actions of the program, or of the baseline, as a user feels them. bench/actions runs it.
//
// usage: actions <scenario> <executable> <notes> <times> [<children>]
//
// Scenarios.h describes the scenarios. If <children> is given, the executable is the baseline, and
// each of its notes has this number of child windows. Writes lines "<action> <milliseconds>". The
// exit status is 1 if an action fails or does not end; the message names it.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "bench/Scenarios.h"
#include "tests/windows/Wait.h"

int main(int count, char** arguments) {
    const std::map<std::string, void (*)(const bench::Settings&)> scenarios{
        {"make-hide-erase", &bench::MakeHideErase},
        {"restore", &bench::RestoreNotes},
        {"open-all-exit", &bench::OpenAllAndExit},
        {"text", &bench::ChangeText},
        {"alarms", &bench::RingAlarms},
        {"start", &bench::StartWithMany},
    };
    const auto scenario = count >= 5 ? scenarios.find(arguments[1]) : scenarios.end();
    if (scenario == scenarios.end()) {
        return 2;
    }
    try {
        scenario->second({.executable = arguments[2],
                          .notes = std::atoi(arguments[3]),
                          .times = std::atoi(arguments[4]),
                          .children = count > 5 ? arguments[5] : ""});
        return 0;
    } catch (const driver::Failure& failure) {
        std::fprintf(stderr, "actions: %s\n", failure.what());
        return 1;
    }
}
