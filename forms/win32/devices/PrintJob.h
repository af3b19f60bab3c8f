#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace forms::win32 {

// The context of a printer or of another surface. The destructor deletes it.
struct DeleteContext {
    void operator()(HDC handle) const { ::DeleteDC(handle); }
};
using DeviceContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

// The system's default printer. RuntimeError 482 if there is none.
DeviceContext DefaultPrinter();

// One document for a printer. Prints lines from the top of the page down, and starts new
// pages as needed. Every failure is a RuntimeError 482. A job that is destroyed before End is
// abandoned.
class PrintJob {
  public:
    // The function of the system that begins a document. Tests replace it.
    using Start = decltype(&::StartDocW);

    // Begins the document, with text of 10 points. The printer's queue shows it under this name. If
    // the printer writes files, the system may ask the user for the name of the file.
    PrintJob(DeviceContext printer, const std::wstring& name, Start start = &::StartDocW);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    // False if the user has cancelled the document, and after End().
    bool IsOpen() const { return isOpen; }
    // Takes effect at the next line.
    void SetFontSize(int points);
    // Prints one line of text without line breaks. A line that is too long for the page is wrapped
    // between words. Tabs go to the next multiple of eight average characters.
    void PrintLine(std::wstring_view text);
    void End();

  private:
    struct DeleteFont {
        void operator()(HFONT handle) const { ::DeleteObject(handle); }
    };

    int PrintedPixels(std::wstring_view text) const;
    std::size_t CharactersThatFit(std::wstring_view text, int space) const;
    void Draw(int x, std::wstring_view text);
    void StartPageIfNeeded();
    void StartPage();
    void FinishPage();
    void NextLine();

    // Declared before the context, and so destroyed after it: the system does not delete a font
    // that is selected into a context.
    std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont> font;
    DeviceContext context;
    RECT area{};  // for text on a page, in device units
    int lineHeight = 0;
    int tabWidth = 0;
    int y = 0;
    bool isOpen = false;
    bool isPageOpen = false;
};

}  // namespace forms::win32
