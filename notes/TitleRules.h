#pragma once

#include <string>

namespace TitleRules {

struct Verdict {
    int rule = 0;         // 1 to 11: the first rule that the title breaks; 0: none
    std::string picture;  // of the message; empty where there is none
    std::string caption;
    std::string text;
    bool clearTitle = false;  // the title box is emptied and gets the focus

    bool IsAccepted() const { return rule == 0; }
    bool HasMessage() const { return !picture.empty(); }
};

// The first rule that a new note's title breaks. isTaken: a saved note has it, see
// NoteStore::IsTaken().
Verdict Check(const std::string& title, bool isTaken);

}  // namespace TitleRules
