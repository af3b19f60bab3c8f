#include "forms/win32/devices/WinPrinter.h"

#include <algorithm>
#include <string_view>

#include "base/RuntimeError.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

bool WinPrinter::BeginDocument() {
    if (isBeginning) {
        throw base::RuntimeError(base::ErrorNumber::PrinterError);
    }
    AbandonDocument();
    isBeginning = true;
    try {
        job = std::make_unique<PrintJob>(DefaultPrinter(), documentName);
    } catch (const base::RuntimeError&) {
        isBeginning = false;
        throw;
    }
    isBeginning = false;
    if (!job->IsOpen()) {
        AbandonDocument();
    }
    return job != nullptr;
}

template <class Action>
void WinPrinter::OnJob(Action action) try {
    if (!job) {
        throw base::RuntimeError(base::ErrorNumber::PrinterError);
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
    OnJob([points](PrintJob& document) { document.SetFontSize(points); });
}

void WinPrinter::EndDocument() {
    OnJob([](PrintJob& document) { document.End(); });
    AbandonDocument();
}

void WinPrinter::AbandonDocument() { job.reset(); }

}  // namespace forms::win32
