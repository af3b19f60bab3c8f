#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/SafeFile.h"
#include "tests/support/RuleDevices.h"

namespace testing_support {

// A folder with one file, whose bytes are oldBytes.
class SafeFileDevices : public testing::Test, protected RuleDevices {
  protected:
    SafeFileDevices() { files.PutFile(path, oldBytes); }

    // Removes all temporary files of killed programs, as if no file were missing.
    static void RemoveLeftovers(const std::string& ofFolder) {
        SafeFile::SettleLeftovers(ofFolder, [](const std::string&) { return std::string(); });
    }

    std::vector<std::string> Names() { return files.Names(folder); }

    inline static const std::string folder = "C:\\Jotwright\\Notes";
    inline static const std::string path = folder + "\\Dentist.txt";
    inline static const std::string oldBytes = "the old note";
    inline static const std::string newBytes = "the new note, which is longer than the old one";
    const std::vector<std::string> justTheNote{"Dentist.txt"};
};

}  // namespace testing_support
