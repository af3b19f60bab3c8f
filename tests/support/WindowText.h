#pragma once

#include <string>

#include "forms/Form.h"

namespace testing_support {

// A text that describes a loaded form: its size, menus and controls, and the order of the Tab key.
// For each control it contains the place in twips, the caption, the tip, and the state that Design
// and Form_Load have set. Properties with their usual values are left out.
std::string WindowText(const forms::Form& form);

}  // namespace testing_support
