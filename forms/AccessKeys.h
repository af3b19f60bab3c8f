#pragma once

#include <vector>

#include "forms/Form.h"

namespace forms {

// What Alt and this letter, small or capital, lead to among the controls that can be used: in the
// order of the Tab key, beginning behind what has the focus. A label or a frame hands the key to
// what follows it. A single one is pressed or gets the focus; of several the first gets the focus,
// so that the key goes from one to the next.
std::vector<Control*> AccessKeyTargets(const Form& form, char letter);

}  // namespace forms
