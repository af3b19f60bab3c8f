#include "notes/NotePrinting.h"

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"

namespace StandardCode {

namespace {

constexpr int printedFontSize = 12;

// Returns false if there was an error. A document that the user cancels is not an error.
bool PrintDocument(const std::string& title, const std::string& text) {
    forms::Printer& printer = *forms::Machine().printer;
    try {
        if (!forms::BeginPrinting()) {
            return true;
        }
        printer.Print("");
        printer.Print("");
        printer.SetFontSize(printedFontSize);
        printer.Print("Note Title: " + title);
        printer.Print("");
        printer.Print(text);
        printer.EndDocument();
        return true;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

void Abandon() {
    try {
        forms::Machine().printer->AbandonDocument();
    } catch (const base::RuntimeError&) {
        // Either there was no document or its printer is gone. PrintNote() reports the failure.
    }
}

}  // namespace

// The texts are copies, because the note may be closed while the printer asks for a file.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void PrintNote(std::string title, std::string text) {
    if (PrintDocument(title, text)) {
        return;
    }
    Abandon();
    forms::MsgBox(
        "         Jotwright encountered a printing error. \r\n"
        "Please make sure printer is turned on and try again.",
        {}, "Print Error");
}

}  // namespace StandardCode
