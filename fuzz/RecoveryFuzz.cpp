#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/Text.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessLocale.h"
#include "forms/headless/MemoryFiles.h"
#include "forms/headless/VirtualClock.h"
#include "notes/RecoveryCopy.h"

namespace {

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool CanBeShown(const std::string& text) {
    return base::ToValidUtf8(text) == text && text.find('\0') == std::string::npos;
}

}  // namespace

// Checks that any bytes are read as a recovery copy or skipped. A recovered note can be changed and
// written to a recovery copy again, and reading that copy gives the changed note.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static forms::headless::VirtualClock clock;
    static forms::headless::HeadlessLocale locale;
    static forms::headless::RecordedSystem system;
    forms::headless::MemoryFiles files;
    files.PutFile("C:\\Jotwright\\Notes\\~note.recovery", std::string(data, data + size));
    forms::Machine().clock = &clock;
    forms::Machine().locale = &locale;
    forms::Machine().system = &system;
    forms::Machine().files = &files;

    StandardCode::Reset();
    for (const RecoveredNote& found : RecoveryCopy::Find()) {
        const StandardCode::NoteRecord& record = found.record;
        Check(CanBeShown(found.file) && CanBeShown(record.Title) && CanBeShown(record.Text));
        RecoveredNote changed = found;
        changed.record.Text += " and more";
        {
            RecoveryCopy copy;
            copy.Adopt(found);
            copy.Keep(changed);
            Check(copy.IsWritten());
        }
        const auto again = RecoveryCopy::Find();
        Check(again.size() == 1 && again[0].isWhole && again[0].file == found.file &&
              again[0].base == found.base && again[0].record.Title == record.Title &&
              again[0].record.Text == changed.record.Text);
    }
    StandardCode::Reset();
    return 0;
}
