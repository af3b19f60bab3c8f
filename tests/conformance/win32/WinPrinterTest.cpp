#include <windows.h>
#include <gtest/gtest.h>
#include <winspool.h>

#include <string>

#include "base/RuntimeError.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/devices/WinPrinter.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

using testing_support::ErrorOf;

namespace {

std::wstring FaceIn(HDC context) {
    wchar_t face[LF_FACESIZE]{};
    ::GetTextFaceW(context, LF_FACESIZE, face);
    return face;
}

DWORD startError = 0;  // ERROR_SUCCESS: the document begins
HDC startedOn = nullptr;
std::wstring startedFace;

int WINAPI StartOrRefuse(HDC context, const DOCINFOW* /*document*/) {
    startedOn = context;
    startedFace = FaceIn(context);
    ::SetLastError(startError);
    return startError == ERROR_SUCCESS ? 1 : SP_ERROR;
}

// Like some printers, a screen does not know the size of the paper.
DeviceContext Screen() { return DeviceContext(::CreateCompatibleDC(nullptr)); }

}  // namespace

TEST(WinPrinterTest, WithoutAPrinterPrintingIsAnError) {
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    if (size != 0) {
        GTEST_SKIP() << "there is a printer";
    }
    WinPrinter printer(L"Document");
    EXPECT_EQ(ErrorOf([&] { printer.BeginDocument(); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.BeginDocument(); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.SetFontSize(12); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.Print("text"); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.EndDocument(); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.AbandonDocument(); }), 0);
}

TEST(WinPrinterTest, ACancelledDocumentIsNoError) {
    for (const DWORD code : {DWORD{ERROR_CANCELLED}, DWORD{ERROR_PRINT_CANCELLED}}) {
        startError = code;
        const PrintJob job(Screen(), L"Document", &StartOrRefuse);
        EXPECT_FALSE(job.IsOpen());
    }
    startError = ERROR_ACCESS_DENIED;
    EXPECT_EQ(ErrorOf([] { const PrintJob job(Screen(), L"Document", &StartOrRefuse); }), 482);
}

TEST(WinPrinterTest, APrinterThatDoesNotKnowItsPaperCanPrint) {
    DeviceContext screen = Screen();
    HDC context = screen.get();
    ASSERT_EQ(::GetDeviceCaps(context, PHYSICALWIDTH), 0) << "what follows would prove nothing";
    startError = ERROR_SUCCESS;
    const PrintJob job(std::move(screen), L"Document", &StartOrRefuse);
    EXPECT_TRUE(job.IsOpen());
    EXPECT_EQ(startedOn, context);
}

// The system links other fonts to this one, for the characters of all scripts.
TEST(WinPrinterTest, TheFontIsTheMessageFont) {
    startError = ERROR_SUCCESS;
    const PrintJob job(Screen(), L"Document", &StartOrRefuse);

    const DeviceContext screen = Screen();
    const LOGFONTW description = MessageFont(SystemDpi());
    HFONT font = ::CreateFontIndirectW(&description);
    const HGDIOBJ before = ::SelectObject(screen.get(), font);
    EXPECT_EQ(startedFace, FaceIn(screen.get()));
    ::SelectObject(screen.get(), before);
    ::DeleteObject(font);
}

}  // namespace forms::win32
