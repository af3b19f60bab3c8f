#include <windows.h>
#include <gtest/gtest.h>
#include <winspool.h>

#include "forms/win32/devices/WinPrinter.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

using testing_support::ErrorOf;

TEST(WinPrinterTest, WithoutAPrinterPrintingIsAnError) {
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    if (size != 0) {
        GTEST_SKIP() << "there is a printer";
    }
    WinPrinter printer(L"Document");
    printer.SetFontSize(12);
    EXPECT_EQ(ErrorOf([&] { printer.Print(""); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.Print("text"); }), 482);
    EXPECT_EQ(ErrorOf([&] { printer.AbandonDocument(); }), 0);
    EXPECT_EQ(ErrorOf([&] { printer.EndDocument(); }), 0);
}

}  // namespace forms::win32
