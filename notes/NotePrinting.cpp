#include "notes/NotePrinting.h"

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"

namespace StandardCode {

namespace {

constexpr int printedFontSize = 12;

bool PrintDocument(const std::string& title, const std::string& text) {
    forms::Printer& printer = *forms::Machine().printer;
    try {
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
        // Either there was no document or its printer is gone. The box below reports the failure.
    }
}

}  // namespace

void PrintNote(const std::string& title, const std::string& text) {
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
