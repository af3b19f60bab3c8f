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

namespace {

int WidthOfColumns(HWND list) {
    HWND header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
    const auto count = static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    int width = 0;
    for (int i = 0; i < count; ++i) {
        width +=
            static_cast<int>(::SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i), 0));
    }
    return width;
}

int WidthInside(HWND list) {
    RECT inside{};
    ::GetClientRect(list, &inside);
    return inside.right;
}

}  // namespace

TEST_F(ListViewTest, TheLastColumnFillsTheList) {
    auto& list = Default<frmList>().lvwRows;
    Start([] { Default<frmList>().Show(); });
    HWND handle = FormWindow::Existing(Default<frmList>())->controls.Find(list)->handle;
    const int withoutBar = WidthInside(handle);
    EXPECT_EQ(WidthOfColumns(handle), withoutBar);

    Start([&list] {
        for (int i = 0; i < 50; ++i) {
            list.AddRow({"", -1, {"Note"}});
        }
    });
    stand->Pump(50);
    EXPECT_LT(WidthInside(handle), withoutBar);
    EXPECT_EQ(WidthOfColumns(handle), WidthInside(handle));

    Start([&list] { list.Clear(); });
    stand->Pump(50);
    EXPECT_EQ(WidthOfColumns(handle), withoutBar);

    Start([&list] { list.width = 4500; });
    stand->Pump(50);
    EXPECT_GT(WidthInside(handle), withoutBar);
    EXPECT_EQ(WidthOfColumns(handle), WidthInside(handle));

    // Narrower than the columns: they keep their widths, and the list can be scrolled.
    Start([&list] { list.width = 1500; });
    stand->Pump(50);
    EXPECT_EQ(WidthOfColumns(handle), 2000 / 15);
}

// The flags of a search by typed letters depend on the system.
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

TEST_F(ListViewTest, AClickOnTheSelectedRowMayUnloadTheForm) {
    auto& form = Default<frmList>();
    int released = 0;
    Start([&] {
        form.lvwRows.AddRow({"", -1, {"Note"}});
        form.lvwRows.ItemClick = [&form] { form.Unload(); };
        form.lvwRows.MouseUp = [&released](int, int, int) { ++released; };
        form.Show();
    });
    HWND handle = FormWindow::Existing(form)->controls.Find(form.lvwRows)->handle;
    NMITEMACTIVATE click{};
    click.hdr.hwndFrom = handle;
    click.hdr.code = static_cast<UINT>(NM_CLICK);
    ::SendMessageW(::GetParent(handle), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    stand->Pump(50);
    EXPECT_EQ(released, 0);
    EXPECT_EQ(LoadedDefault<frmList>(), nullptr);
}

}  // namespace forms::win32
