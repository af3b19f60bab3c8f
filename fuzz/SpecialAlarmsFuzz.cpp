#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "alarms/SpecialAlarmsFile.h"
#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/headless/HeadlessLocale.h"

namespace {

using SpecialAlarmsFile::Row;

// A row with quotes in its day need not be the same after saving and reading: the window writes
// only the seven names of the days.
bool HasQuoteInDay(const Row& row) { return row.Day.find('"') != std::string::npos; }

std::vector<Row> WithoutLineBreaks(std::vector<Row> rows) {
    for (Row& row : rows) {
        std::replace(row.Message.begin(), row.Message.end(), '\r', ' ');
        std::replace(row.Message.begin(), row.Message.end(), '\n', ' ');
    }
    return rows;
}

void CheckRoundTrip(const std::vector<Row>& rows) {
    std::array<Row, SpecialAlarmsFile::rowCount> week;
    std::copy(rows.begin(), rows.end(), week.begin());
    std::vector<Row> again;
    SpecialAlarmsFile::Decode(SpecialAlarmsFile::Encode(week), again);
    if (again != rows && again != WithoutLineBreaks(rows)) {
        std::abort();
    }
}

}  // namespace

// Checks that reading any bytes gives seven rows or one of three errors. Rows that were read are
// the same after saving and reading, except that blanks may replace the line breaks of messages.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static forms::headless::HeadlessLocale locale;
    forms::Machine().locale = &locale;
    std::vector<Row> rows;
    try {
        SpecialAlarmsFile::Decode(std::string(data, data + size), rows);
    } catch (const base::RuntimeError& error) {
        if (rows.size() >= SpecialAlarmsFile::rowCount ||
            (!(error == base::ErrorNumber::InputPastEndOfFile) &&
             !(error == base::ErrorNumber::TypeMismatch) &&
             !(error == base::ErrorNumber::Overflow))) {
            std::abort();
        }
        return 0;
    }
    if (std::none_of(rows.begin(), rows.end(), HasQuoteInDay)) {
        CheckRoundTrip(rows);
    }
    return 0;
}
