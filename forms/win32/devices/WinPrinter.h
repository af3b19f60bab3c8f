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

    // Each line of the text becomes a line of the page. After a failure the document is abandoned,
    // and the next call begins a new document.
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
    static constexpr int usualFontSize = 10;  // points
    int fontSize = usualFontSize;
    std::unique_ptr<PrintJob> job;
};

}  // namespace forms::win32
