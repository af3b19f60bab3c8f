#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "forms/headless/HeadlessStage.h"

namespace forms::headless {

// An action that the scripted user tries, for example "click frmMain.cmdExit". The test fails if a
// real user could not do it now.
class Attempt {
  public:
    Attempt(HeadlessStage& userStage, std::string triedAction)
        : stage(userStage), action(std::move(triedAction)) {}

    // Whether a real user could act on the target. If not, the test fails.
    bool Reaches(Form& form) const;
    bool Reaches(const Control& control) const;
    // Returns the condition. If it is false, the test fails with this reason.
    bool Needs(bool condition, std::string_view reason) const {
        if (!condition) {
            stage.Fail("The user cannot " + action + ": " + std::string(reason) + ".");
        }
        return condition;
    }

  private:
    HeadlessStage& stage;
    std::string action;
};

}  // namespace forms::headless
