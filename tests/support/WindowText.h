#pragma once

#include <string>

#include "forms/Form.h"

namespace testing_support {

// A loaded form as text: its size, its menus, its controls with their places in twips, captions,
// tips and the state that Design and Form_Load have given them, and the order of the Tab key. A
// property with its usual value is left out.
std::string WindowText(const forms::Form& form);

}  // namespace testing_support
