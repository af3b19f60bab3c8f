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

// What the writer does not keep: a time beside the date, a date beside the time, the trailer.
StandardCode::NoteRecord AsWritten(StandardCode::NoteRecord record) {
    record.AlarmDate = record.AlarmDate.DateOnly();
    record.AlarmTime = record.AlarmTime.TimeOnly();
    record.Trailer = "yes";
    return record;
}

}  // namespace

// Any bytes are a note or one of three errors, and a note that could be read can be shown whole and
// survives being saved.
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
