#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace forms::win32 {

// One document for the default printer. Prints lines from the top of the page down, and starts new
// pages as needed. Every failure is a RuntimeError 482. A job that is destroyed before End is
// abandoned.
class PrintJob {
  public:
    // Begins the document. The printer's queue shows it under this name.
    PrintJob(const std::wstring& name, int fontPoints);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    // Takes effect at the next line.
    void SetFontSize(int points);
    // Prints one line of text without line breaks. A line that is too long for the page is wrapped
    // between words. Tabs go to the next multiple of eight average characters.
    void PrintLine(std::wstring_view text);
    void End();

  private:
    struct DeleteContext {
        void operator()(HDC handle) const { ::DeleteDC(handle); }
    };
    struct DeleteFont {
        void operator()(HFONT handle) const { ::DeleteObject(handle); }
    };

    int PrintedPixels(std::wstring_view text) const;
    std::size_t CharactersThatFit(std::wstring_view text, int space) const;
    void Draw(int x, std::wstring_view text);
    void StartPageIfNeeded();
    void FinishPage();
    void NextLine();

    // Declared before the context, and so destroyed after it: a font that is selected into a
    // context is not deleted.
    std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont> font;
    std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext> context;
    RECT area{};  // of the page, in device units
    int lineHeight = 0;
    int tabWidth = 0;
    int y = 0;
    bool isOpen = false;
    bool isPageOpen = false;
};

}  // namespace forms::win32
