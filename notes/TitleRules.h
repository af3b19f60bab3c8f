#pragma once

#include <string>

namespace TitleRules {

struct Verdict {
    int rule = 0;         // 1 to 11: the first rule that the title breaks; 0: none
    std::string picture;  // of the message; empty if there is no message
    std::string caption;
    std::string text;
    bool clearTitle = false;  // the title box must be emptied and get the focus

    bool IsAccepted() const { return rule == 0; }
    bool HasMessage() const { return !picture.empty(); }
};

// Checks the title of a new note. isTaken says whether a saved note has this title; see
// NoteStore::IsTaken().
Verdict Check(const std::string& title, bool isTaken);

}  // namespace TitleRules
