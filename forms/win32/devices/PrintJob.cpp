#include "forms/win32/devices/PrintJob.h"

#include <winspool.h>

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/LateLibrary.h"

namespace forms::win32 {

namespace {

constexpr int pointsPerInch = 72;
constexpr int usualFontSize = 10;  // points
constexpr int averageCharactersPerTab = 8;

[[noreturn]] void Fail() { throw base::RuntimeError(base::ErrorNumber::PrinterError); }

std::wstring DefaultPrinterName() {
    static const auto getDefault =
        FromLibrary<decltype(&::GetDefaultPrinterW)>(L"winspool.drv", "GetDefaultPrinterW");
    DWORD size = 0;
    if (getDefault != nullptr) {
        getDefault(nullptr, &size);
    }
    std::wstring name(size, L'\0');
    if (size == 0 || getDefault(name.data(), &size) == 0) {
        Fail();
    }
    name.resize(std::min(name.size(), name.find(L'\0')));
    return name;
}

// The area for text, relative to the corner of the printable page. The margin is three quarters of
// an inch from each edge of the paper, or more if the printer cannot print that close to the edge.
RECT TextArea(HDC context) {
    const int horizontalMargin = ::GetDeviceCaps(context, LOGPIXELSX) * 3 / 4;
    const int verticalMargin = ::GetDeviceCaps(context, LOGPIXELSY) * 3 / 4;
    const int offsetX = ::GetDeviceCaps(context, PHYSICALOFFSETX);
    const int offsetY = ::GetDeviceCaps(context, PHYSICALOFFSETY);
    const int width = ::GetDeviceCaps(context, HORZRES);
    const int height = ::GetDeviceCaps(context, VERTRES);
    // Some printer drivers do not report the size of the paper. For them, the printable page counts
    // as the paper.
    const int paperWidth = std::max(::GetDeviceCaps(context, PHYSICALWIDTH), width);
    const int paperHeight = std::max(::GetDeviceCaps(context, PHYSICALHEIGHT), height);
    RECT area{};
    area.left = std::max(0, horizontalMargin - offsetX);
    area.top = std::max(0, verticalMargin - offsetY);
    area.right = std::min(width, paperWidth - horizontalMargin - offsetX);
    area.bottom = std::min(height, paperHeight - verticalMargin - offsetY);
    return area;
}

// Returns count, or the next smaller one if count UTF-16 units would split a character. Returns 2
// instead of 0.
std::size_t WithoutHalfCharacter(std::wstring_view text, std::size_t count) {
    const bool cuts = count < text.size() && text[count - 1] >= 0xd800 && text[count - 1] < 0xdc00;
    if (!cuts) {
        return count;
    }
    return count == 1 ? 2 : count - 1;
}

}  // namespace

DeviceContext DefaultPrinter() {
    DeviceContext printer(::CreateDCW(L"WINSPOOL", DefaultPrinterName().c_str(), nullptr, nullptr));
    if (!printer) {
        Fail();
    }
    return printer;
}

PrintJob::PrintJob(DeviceContext printer, const std::wstring& name, Start start)
    : context(std::move(printer)) {
    area = TextArea(context.get());
    if (area.right <= area.left || area.bottom <= area.top) {
        Fail();
    }
    SetFontSize(usualFontSize);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    if (start(context.get(), &document) <= 0) {
        const DWORD code = ::GetLastError();
        if (code != ERROR_CANCELLED && code != ERROR_PRINT_CANCELLED) {
            Fail();
        }
        return;
    }
    isOpen = true;
    y = area.top;
}

PrintJob::~PrintJob() {
    if (isOpen) {
        ::AbortDoc(context.get());
    }
}

void PrintJob::SetFontSize(int points) {
    // The message font is the font that the note has on the screen. If that font lacks a character,
    // the system prints it in another font.
    LOGFONTW description = MessageFont(SystemDpi());
    description.lfHeight =
        -::MulDiv(points, ::GetDeviceCaps(context.get(), LOGPIXELSY), pointsPerInch);
    description.lfWidth = 0;
    decltype(font) newFont(::CreateFontIndirectW(&description));
    TEXTMETRICW metrics{};
    if (!newFont || ::SelectObject(context.get(), newFont.get()) == nullptr) {
        Fail();
    }
    font = std::move(newFont);
    if (::GetTextMetricsW(context.get(), &metrics) == 0) {
        Fail();
    }
    lineHeight = std::max(1L, metrics.tmHeight + metrics.tmExternalLeading);
    tabWidth = std::max(1L, metrics.tmAveCharWidth * averageCharactersPerTab);
}

void PrintJob::PrintLine(std::wstring_view text) {
    const int width = area.right - area.left;
    int x = 0;
    StartPageIfNeeded();
    while (!text.empty()) {
        if (text.front() == L'\t') {
            x = (x / tabWidth + 1) * tabWidth;
            text.remove_prefix(1);
            continue;
        }
        const std::wstring_view run = text.substr(0, text.find(L'\t'));
        const std::size_t fitting = x < width ? CharactersThatFit(run, width - x) : 0;
        if (fitting == run.size()) {
            Draw(x, run);
            x += PrintedPixels(run);
            text.remove_prefix(run.size());
            continue;
        }
        // Move the word that crosses the edge to the next line. Split it only if it is too long for
        // a line of its own.
        const std::size_t blank = run.substr(0, fitting + 1).find_last_of(L' ');
        std::size_t taken = 0;
        if (blank != std::wstring_view::npos) {
            taken = blank;
        } else if (x == 0) {
            taken = WithoutHalfCharacter(run, std::max<std::size_t>(1, fitting));
        }
        Draw(x, run.substr(0, taken));
        text.remove_prefix(taken);
        if (blank != std::wstring_view::npos) {
            text.remove_prefix(1);
        }
        x = 0;
        NextLine();
        StartPageIfNeeded();
    }
    NextLine();
}

void PrintJob::End() {
    if (!isPageOpen) {
        StartPage();
    }
    FinishPage();
    if (::EndDoc(context.get()) <= 0) {
        Fail();
    }
    isOpen = false;
}

int PrintJob::PrintedPixels(std::wstring_view text) const {
    SIZE size{};
    if (::GetTextExtentPoint32W(context.get(), text.data(), static_cast<int>(text.size()), &size) ==
        0) {
        Fail();
    }
    return size.cx;
}

std::size_t PrintJob::CharactersThatFit(std::wstring_view text, int space) const {
    int fitting = 0;
    SIZE size{};
    if (::GetTextExtentExPointW(context.get(), text.data(), static_cast<int>(text.size()), space,
                                &fitting, nullptr, &size) == 0) {
        Fail();
    }
    return static_cast<std::size_t>(fitting);
}

void PrintJob::Draw(int x, std::wstring_view text) {
    if (!text.empty() && ::TextOutW(context.get(), area.left + x, y, text.data(),
                                    static_cast<int>(text.size())) == 0) {
        Fail();
    }
}

// A page is started only when a line is printed. So a text that ends with the page leaves no empty
// page behind it.
void PrintJob::StartPageIfNeeded() {
    if (isPageOpen && y + lineHeight > area.bottom && y > area.top) {
        FinishPage();
    }
    if (!isPageOpen) {
        StartPage();
    }
}

void PrintJob::StartPage() {
    if (::StartPage(context.get()) <= 0) {
        Fail();
    }
    isPageOpen = true;
    y = area.top;
    // StartPage may reset the attributes of the context.
    ::SelectObject(context.get(), font.get());
    ::SetBkMode(context.get(), TRANSPARENT);
}

void PrintJob::FinishPage() {
    isPageOpen = false;
    if (::EndPage(context.get()) <= 0) {
        Fail();
    }
}

void PrintJob::NextLine() { y += lineHeight; }

}  // namespace forms::win32
