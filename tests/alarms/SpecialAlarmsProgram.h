#pragma once

#include <gtest/gtest.h>

#include <string>

#include "alarms/SpecialAlarmsFile.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/StandardCode.h"
#include "tests/support/TestProgram.h"

namespace testing_support {

// The window of the weekly alarms and their file.
class SpecialAlarmsProgram : public TestProgram {
  protected:
    inline static const std::string path = "C:\\Jotwright\\SpecialAlarms\\SpecialAlarms.txt";
    inline static const std::string emptyRow = "\"Monday\",#00:00:00#,\"\",0\r\n";

    void Open() {
        Start([] { forms::Default<frmSpecialAlarms>().Show(); });
    }
    static frmSpecialAlarms& Window() { return forms::Default<frmSpecialAlarms>(); }
    static bool IsOpen() { return forms::LoadedDefault<frmSpecialAlarms>() != nullptr; }

    void SetRow(std::size_t row, const char* day, base::DateTime time, bool enabled) {
        user->Select(Window().cboDays[row], day);
        user->Pick(Window().dtpTime[row], time);
        if ((Window().chkEnabled[row].value() == 1) != enabled) {
            user->Click(Window().chkEnabled[row]);
        }
    }
    void ExpectIdentical(const char* first, const char* second) {
        ExpectMessage(std::string(20, ' ') + "Alarm Number: " + first + "\r\n" +
                          std::string(31, ' ') + "and \r\n" + std::string(20, ' ') +
                          "Alarm Number: " + second + "\r\n" + std::string(10, ' ') +
                          "Have the same day and time set.\r\n\r\n"
                          "  Alarms can't be set for the same day and time.      ",
                      "Error - Identical Alarms", forms::BoxIcon::Exclamation);
    }
    void ExpectReadError(const std::string& error) {
        ExpectMessage(error +
                          "\r\n\r\nThe special alarms that could not be read are shown as they "
                          "were when they were last loaded.",
                      "Error Loading Special Alarms", forms::BoxIcon::Exclamation);
    }
    void ExpectWriteError(const std::string& error) {
        ExpectMessage(error + "\r\n\r\nThe special alarms have not been saved.",
                      "Error Saving Special Alarms", forms::BoxIcon::Exclamation);
    }
    void PutFile(const std::string& firstRows, int emptyRows) {
        std::string text = firstRows;
        for (int i = 0; i < emptyRows; ++i) {
            text += emptyRow;
        }
        files.PutFile(path, text);
    }
};

}  // namespace testing_support
