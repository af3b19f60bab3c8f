#include <cstdint>
#include <cstdlib>
#include <string>

#include "forms/Text.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessLocale.h"
#include "forms/headless/MemoryFiles.h"
#include "notes/Recovery.h"

namespace {

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool CanBeShown(const std::string& text) {
    return forms::ToValidUtf8(text) == text && text.find('\0') == std::string::npos;
}

}  // namespace

// Any bytes are a copy or are passed over; what was brought back can be kept again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static forms::headless::HeadlessLocale locale;
    static forms::headless::RecordedSystem system;
    forms::headless::MemoryFiles files;
    files.PutFile("C:\\Jotwright\\Notes\\~note.recovery", std::string(data, data + size));
    forms::Machine().locale = &locale;
    forms::Machine().system = &system;
    forms::Machine().files = &files;

    for (const RecoveredText& found : Recovery::Find()) {
        Check(CanBeShown(found.title) && CanBeShown(found.text));
        {
            RecoveryCopy copy;
            copy.Adopt(found);
            copy.Keep(found.title, found.text + " and more");
            Check(copy.IsWritten());
        }
        const std::vector<RecoveredText> again = Recovery::Find();
        Check(again.size() == 1 && again[0].title == found.title &&
              again[0].text == found.text + " and more");
    }
    return 0;
}
