#include "forms/win32/devices/WinPrinter.h"

#include <algorithm>
#include <string_view>

#include "base/RuntimeError.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

template <class Action>
void WinPrinter::OnJob(Action action) try {
    if (!job) {
        job = std::make_unique<PrintJob>(documentName, fontSize);
    }
    action(*job);
} catch (const base::RuntimeError&) {
    AbandonDocument();
    throw;
}

void WinPrinter::Print(const std::string& text) {
    const std::wstring wide = Wide(text);
    OnJob([&wide](PrintJob& document) {
        std::wstring_view rest = wide;
        for (;;) {
            const std::size_t end = std::min(rest.find_first_of(L"\r\n"), rest.size());
            document.PrintLine(rest.substr(0, end));
            if (end == rest.size()) {
                return;
            }
            rest.remove_prefix(end + (rest.substr(end).starts_with(L"\r\n") ? 2 : 1));
        }
    });
}

void WinPrinter::SetFontSize(int points) {
    fontSize = points;
    if (job) {
        OnJob([points](PrintJob& document) { document.SetFontSize(points); });
    }
}

void WinPrinter::EndDocument() {
    if (job) {
        OnJob([](PrintJob& document) { document.End(); });
    }
    AbandonDocument();
}

void WinPrinter::AbandonDocument() {
    job.reset();
    fontSize = usualFontSize;
}

}  // namespace forms::win32
