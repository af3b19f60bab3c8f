#include <windows.h>
#include <commctrl.h>

#include "forms/win32/FormWindow.h"
#include "tests/conformance/Stand.h"

namespace forms::win32 {

namespace {

class frmList : public Form {
  public:
    frmList() : Form("frmList") {}
    ListView lvwRows{this, "lvwRows"};

    void Design() override {
        lvwRows.columns = {{"Title", 2000, "title"}};
        lvwRows.Place(180, 180, 3000, 2000);
    }
};

}  // namespace

class ListViewTest : public conformance::StandTest {};

// Which flags a search by typed letters has depends on the system.
TEST_F(ListViewTest, TypedLettersFindTheirRow) {
    Start([] {
        auto& list = Default<frmList>().lvwRows;
        list.AddRow({"1", -1, {"Dentist"}});
        list.AddRow({"2", -1, {"Shopping"}});
        Default<frmList>().Show();
    });
    HWND handle =
        FormWindow::Existing(Default<frmList>())->controls.Find(Default<frmList>().lvwRows)->handle;
    for (const UINT flags : {UINT{LVFI_STRING}, UINT{LVFI_PARTIAL}, UINT{4} /*LVFI_SUBSTRING*/}) {
        NMLVFINDITEMW search{};
        search.hdr.hwndFrom = handle;
        search.hdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(handle));
        search.hdr.code = static_cast<UINT>(LVN_ODFINDITEMW);
        search.lvfi.flags = flags;
        search.lvfi.psz = L"sho";
        EXPECT_EQ(::SendMessageW(::GetParent(handle), WM_NOTIFY, search.hdr.idFrom,
                                 reinterpret_cast<LPARAM>(&search)),
                  1)
            << flags;
    }
}

}  // namespace forms::win32
