#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace forms::win32 {

// One document on its way to the default printer: lines from the top of the page down, pages as
// needed. Every failure is a RuntimeError 482. A job that goes without End is abandoned.
class PrintJob {
  public:
    // Begins the document. name: as the list of the printer's jobs shows it.
    PrintJob(const std::wstring& name, int fontPoints);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    // From the next line on.
    void SetFontSize(int points);
    // One line of text, without line breaks; wrapped between words where it is too long for the
    // page. Tabs go to the next multiple of eight average characters.
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

    // The context goes first: a font that is selected into one is not deleted.
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
