#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/RuntimeError.h"
#include "forms/headless/HeadlessLocale.h"
#include "notes/NoteFile.h"

namespace {

bool HasQuote(const StandardCode::NoteRecord& record) {
    return (record.Title + record.Text + record.AlarmState).find('"') != std::string::npos;
}

// Returns the record as it is after writing and reading. The writer drops the time part of the
// date, the date part of the time, and any trailer but "yes".
StandardCode::NoteRecord AsWritten(StandardCode::NoteRecord record) {
    record.AlarmDate = record.AlarmDate.DateOnly();
    record.AlarmTime = record.AlarmTime.TimeOnly();
    record.Trailer = "yes";
    return record;
}

}  // namespace

// Checks that reading any bytes gives a note or one of three errors. A note that was read contains
// no zero character, so that it can be shown completely. If it has no quotes, it is the same after
// saving and reading.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static forms::headless::HeadlessLocale locale;
    forms::Machine().locale = &locale;
    StandardCode::NoteRecord record;
    try {
        NoteFile::Decode(std::string(data, data + size), record);
    } catch (const base::RuntimeError& error) {
        if (!(error == base::ErrorNumber::InputPastEndOfFile) &&
            !(error == base::ErrorNumber::TypeMismatch) &&
            !(error == base::ErrorNumber::Overflow)) {
            std::abort();
        }
        return 0;
    }
    if ((record.Title + record.Text).find('\0') != std::string::npos) {
        std::abort();
    }
    if (!HasQuote(record)) {
        StandardCode::NoteRecord again;
        NoteFile::Decode(NoteFile::Encode(record), again);
        if (again != AsWritten(record)) {
            std::abort();
        }
    }
    return 0;
}
