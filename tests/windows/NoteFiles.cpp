#include "tests/windows/NoteFiles.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/windows/Clock.h"
#include "tests/windows/Needs.h"
#include "tests/windows/Wait.h"

namespace driver {

std::string NoteFiles::NotePath(const std::string& title) const {
    return folder + "\\Notes\\" + title + ".txt";
}

std::string NoteFiles::MadeToday(const std::string& text) {
    const std::string start = "2031-06-02";
    const std::size_t place = text.find(start);
    return place == std::string::npos || Has("JOTWRIGHT_CLOCK_FILE")
               ? text
               : std::string(text).replace(place, start.size(), Clock::Now(), 0, start.size());
}

bool NoteFiles::NoteFileIs(const std::string& title, const std::string& bytes) const {
    const auto file = WholeFile(NotePath(title));
    return file == bytes || file == MadeToday(bytes);
}

void NoteFiles::ExpectNote(const std::string& title, const std::string& bytes) const {
    if (!ComesTrue([&] { return NoteFileIs(title, bytes); })) {
        EXPECT_EQ(WholeFile(NotePath(title)).value_or("(no file)"), bytes);
    }
}

void NoteFiles::WriteNote(const std::string& title, const std::string& bytes) const {
    MakeFolder(folder + "\\Notes");
    WriteWholeFile(NotePath(title), bytes);
}

std::vector<std::string> NoteFiles::CopyPaths(const std::string& title) const {
    std::vector<std::string> paths;
    for (const std::string& name : FileNames(folder + "\\Notes")) {
        if (name.starts_with("~" + title + "-") && name.ends_with(".recovery")) {
            paths.push_back(folder + "\\Notes\\" + name);
        }
    }
    return paths;
}

std::string NoteFiles::CopyPath(const std::string& title) const {
    const std::vector<std::string> paths = CopyPaths(title);
    EXPECT_EQ(paths.size(), 1U) << title;
    return paths.empty() ? std::string() : paths.front();
}

// The text of a copy that is being written is in a temporary file, which does not count.
void NoteFiles::WaitForCopy(const std::string& title, const std::string& part) const {
    WaitUntil("a copy holds " + part, [&] {
        const std::vector<std::string> paths = CopyPaths(title);
        return std::any_of(paths.begin(), paths.end(), [&part](const std::string& path) {
            const std::string copy = WholeFile(path).value_or("");
            return copy.find(part) != std::string::npos ||
                   copy.find(MadeToday(part)) != std::string::npos;
        });
    });
}

}  // namespace driver
