#include "tests/windows/Printer.h"

#include <windows.h>
#include <winspool.h>

#include <sstream>

#include "forms/win32/Utf.h"
#include "tests/windows/Files.h"
#include "tests/windows/Gestures.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

wchar_t printerName[] = L"Test printer";
wchar_t driverName[] = L"Test printer driver";

// The smallest printer description that the system's PostScript driver accepts.
constexpr const char* description =
    "*PPD-Adobe: \"4.3\"\n"
    "*FormatVersion: \"4.3\"\n"
    "*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n"
    "*LanguageEncoding: ISOLatin1\n"
    "*PCFileName: \"TEST.PPD\"\n"
    "*Manufacturer: \"Test\"\n"
    "*Product: \"(Test)\"\n"
    "*PSVersion: \"(3010.000) 0\"\n"
    "*ModelName: \"Test printer\"\n"
    "*ShortNickName: \"Test printer\"\n"
    "*NickName: \"Test printer\"\n"
    "*LanguageLevel: \"3\"\n"
    "*ColorDevice: True\n"
    "*DefaultColorSpace: RGB\n"
    "*TTRasterizer: Type42\n"
    "*DefaultResolution: 300dpi\n"
    "*OpenUI *PageSize/Page Size: PickOne\n"
    "*OrderDependency: 10 AnySetup *PageSize\n"
    "*DefaultPageSize: Letter\n"
    "*PageSize Letter/Letter: \"<</PageSize[612 792]>>setpagedevice\"\n"
    "*CloseUI: *PageSize\n"
    "*DefaultImageableArea: Letter\n"
    "*ImageableArea Letter/Letter: \"18 18 594 774\"\n"
    "*DefaultPaperDimension: Letter\n"
    "*PaperDimension Letter/Letter: \"612 792\"\n"
    "*DefaultFont: Courier\n"
    "*Font Courier: Standard \"(1.0)\" Standard ROM\n"
    "*Font Helvetica: Standard \"(1.0)\" Standard ROM\n"
    "*Font Times-Roman: Standard \"(1.0)\" Standard ROM\n";

std::string PrintFile() { return Variable("JOTWRIGHT_PRINT_FILE"); }

// The value of an attribute that begins a tag, as in yMin="12.5".
double Number(const std::string& tag, const std::string& name) {
    const std::size_t start = tag.find(name + "=\"");
    return start == std::string::npos ? 0 : std::stod(tag.substr(start + name.size() + 2));
}

// Reads a document as pdftotext describes it: a tag for each page, which contains a tag for each
// line, which contains a tag around each word.
std::vector<Printer::Page> Pages(const std::string& document) {
    std::vector<Printer::Page> pages;
    std::istringstream rows(document);
    for (std::string row; std::getline(rows, row);) {
        if (row.find("<page ") != std::string::npos) {
            pages.emplace_back();
        } else if (row.find("<line ") != std::string::npos) {
            const double top = Number(row, "yMin");
            pages.back().push_back({top, Number(row, "yMax") - top, {}});
        } else if (row.find("<word ") != std::string::npos) {
            const std::size_t start = row.find('>') + 1;
            std::string& words = pages.back().back().words;
            words += (words.empty() ? "" : " ") + row.substr(start, row.rfind("</") - start);
        }
    }
    return pages;
}

}  // namespace

Printer::Printer() {
    RemoveFile(UnixPath(PrintFile()));
    const std::string file = UnixPath(Variable("JOTWRIGHT_TEMP") + "/test.ppd");
    WriteWholeFile(file, description);
    std::wstring data = forms::win32::Wide(file);
    // A 32-bit program needs a 32-bit driver.
    std::wstring environment = sizeof(void*) == 8 ? L"Windows x64" : L"Windows NT x86";
    wchar_t code[] = L"wineps.drv";
    DRIVER_INFO_3W printerDriver{};
    printerDriver.cVersion = 3;
    printerDriver.pName = driverName;
    printerDriver.pEnvironment = environment.data();
    printerDriver.pDriverPath = code;
    printerDriver.pConfigFile = code;
    printerDriver.pDataFile = data.data();
    if (::AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&printerDriver),
                              APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) == 0 &&
        ::GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED) {
        throw Failure("no driver for a printer: error " + std::to_string(::GetLastError()));
    }
    std::wstring port = L"|cat >> " + forms::win32::Wide(PrintFile());
    std::wstring processor = forms::win32::Wide(Variable("JOTWRIGHT_PRINT_PROCESSOR"));
    wchar_t type[] = L"RAW";
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = printerName;
    printer.pPortName = port.data();
    printer.pDriverName = driverName;
    printer.pPrintProcessor = processor.data();
    printer.pDatatype = type;
    HANDLE added = ::AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (added == nullptr) {
        throw Failure("no printer: error " + std::to_string(::GetLastError()));
    }
    ::ClosePrinter(added);
    ::SetDefaultPrinterW(printerName);
}

Printer::~Printer() {
    PRINTER_DEFAULTSW rights{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (::OpenPrinterW(printerName, &printer, &rights) != 0) {
        ::DeletePrinter(printer);
        ::ClosePrinter(printer);
    }
}

std::vector<Printer::Page> Printer::WaitForPages() {
    WaitUntil("a document is printed", [] {
        const auto bytes = WholeFile(UnixPath(PrintFile()));
        return bytes && bytes->find("%%EOF") != std::string::npos;
    });
    AskHost("print-text");
    return Pages(WholeFile(UnixPath(PrintFile() + ".txt")).value_or(""));
}

Printer::Page Printer::WaitForPage() {
    const auto pages = WaitForPages();
    if (pages.size() != 1) {
        throw Failure(std::to_string(pages.size()) + " pages are printed");
    }
    return pages.front();
}

}  // namespace driver
