#pragma once

#include <string>
#include <vector>

#include "tests/windows/Files.h"

namespace driver {

// The files of the program under test: the program, its notes and their recovery copies.
class NoteFiles {
  protected:
    ~NoteFiles() = default;

    std::string NotePath(const std::string& title) const;
    // Returns the text. If the tests cannot move the clock, today's date replaces the date at which
    // the clock would start, because new notes have today's date.
    static std::string MadeToday(const std::string& text);
    // Waits until the note file holds exactly these bytes, or MadeToday() of them. Fails the test
    // if it never does.
    void ExpectNote(const std::string& title, const std::string& bytes) const;
    void WriteNote(const std::string& title, const std::string& bytes) const;
    bool NoteFileIs(const std::string& title, const std::string& bytes) const;

    // Paths of the recovery copies of unsaved notes with this title: ~Shopping-<instance>.recovery.
    std::vector<std::string> CopyPaths(const std::string& title) const;
    // The path of the only recovery copy with this title. Fails the test if there is not exactly
    // one.
    std::string CopyPath(const std::string& title) const;
    // Waits until one of these files contains this text.
    void WaitForCopy(const std::string& name, const std::string& part) const;

    const std::string executable = Variable("JOTWRIGHT_EXE");
    const std::string folder = FolderOf(executable);
};

}  // namespace driver
