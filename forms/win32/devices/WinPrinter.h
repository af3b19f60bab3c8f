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

    // A document that has not ended is abandoned. RuntimeError 482 if an earlier call still waits
    // for the user.
    bool BeginDocument() override;
    // Each line of the text becomes a line of the page. After a failure the document is abandoned.
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
