#pragma once

#include <memory>
#include <string>
#include <utility>

#include "forms/Devices.h"
#include "forms/win32/devices/PrintJob.h"

namespace forms::win32 {

class WinPrinter : public Printer {
  public:
    explicit WinPrinter(std::wstring nameOfDocuments) : documentName(std::move(nameOfDocuments)) {}

    // Abandons an earlier document that has not ended. RuntimeError 482 if an earlier call still
    // waits for the user.
    bool BeginDocument() override;
    // Prints each line of the text on a line of its own. A failure abandons the document.
    void Print(const std::string& text) override;
    // The size is valid until the document ends.
    void SetFontSize(int points) override;
    void EndDocument() override;
    void AbandonDocument() override;

  private:
    // Runs an action on the document. If the action fails, the document is abandoned.
    template <class Action>
    void OnJob(Action action);

    const std::wstring documentName;
    std::unique_ptr<PrintJob> job;
    bool isBeginning = false;
};

}  // namespace forms::win32
