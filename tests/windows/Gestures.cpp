#include "tests/windows/Gestures.h"

#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include "forms/win32/Utf.h"
#include "tests/windows/Files.h"
#include "tests/windows/Needs.h"
#include "tests/windows/RemoteMemory.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

constexpr UINT trayIconId = 1;
constexpr std::size_t cellLength = 512;

LPARAM Middle(const Window& control) {
    const RECT place = control.Place();
    return MAKELPARAM((place.right - place.left) / 2, (place.bottom - place.top) / 2);
}

void WaitForMenu(const Program& program) {
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
}

// Chooses the rest of the path, from this level on. The first entry of the menu must be selected.
void Walk(const Window& receiver, const MenuPath& path, std::size_t from) {
    for (std::size_t level = from; level < path.size(); ++level) {
        if (level > from) {
            receiver.Press(VK_RIGHT);
        }
        for (int i = 0; i < path[level]; ++i) {
            receiver.Press(VK_DOWN);
        }
    }
    receiver.Press(VK_RETURN);
}

void WaitUntilMenuIsGone(const Program& program) {
    WaitUntil("the menu closes", [&] { return !program.OpenMenu(); });
}

// A point on the text of the row's first column.
LPARAM PlaceInRow(const Window& list, int row) {
    RECT wanted{};
    wanted.left = LVIR_LABEL;
    const Remote<RECT> area(list, wanted);
    list.Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), area.Parameter());
    const RECT label = area.Value();
    return MAKELPARAM(label.left + 10, (label.top + label.bottom) / 2);
}

// Clicks the first field of the picker, types the fields one after the other and waits until the
// values are picked. A picker without the focus takes no characters: if it loses the focus,
// everything is typed again.
void TypeFields(const Window& picker, const std::vector<std::string>& fields,
                const std::string& what, const std::function<bool()>& arePicked) {
    NeedFormatsOfUnitedStates();
    if (!picker.IsVisible() || !picker.IsEnabled()) {
        throw Failure("a user cannot pick a time in " + picker.Description());
    }
    const RECT place = picker.Place();
    const LPARAM first = MAKELPARAM(6, (place.bottom - place.top) / 2);
    bool isTyped = false;
    WaitUntil(what, [&] {
        if (isTyped && arePicked()) {
            return true;
        }
        picker.Post(WM_LBUTTONDOWN, MK_LBUTTON, first);
        picker.Post(WM_LBUTTONUP, 0, first);
        WaitUntil("the picker has the focus", [&] { return picker.HasFocus(); });
        for (const std::string& field : fields) {
            for (const char character : field) {
                picker.Post(WM_CHAR, static_cast<unsigned char>(character), 1);
            }
            picker.Press(VK_RIGHT);
        }
        isTyped = true;
        return ComesTrueSoon(arePicked);
    });
}

}  // namespace

void ChooseFromOpenMenu(const Program& program, const Window& receiver, const MenuPath& path) {
    WaitForMenu(program);
    receiver.Press(VK_DOWN);  // selects the first entry
    Walk(receiver, path, 0);
    WaitUntilMenuIsGone(program);
}

void ChooseFromMenuBar(const Program& program, const Window& window, const MenuPath& path) {
    window.Post(WM_SYSCOMMAND, SC_KEYMENU, 0);
    for (int i = 0; i < path.front(); ++i) {
        window.Press(VK_RIGHT);
    }
    window.Press(VK_DOWN);  // opens the menu, its first entry selected
    WaitForMenu(program);
    Walk(window, path, 1);
    WaitUntilMenuIsGone(program);
}

void ChooseFromPopup(const Program& program, const Window& control, const MenuPath& path) {
    RightClick(control);
    ChooseFromOpenMenu(program, control, path);
}

void CloseMenu(const Program& program, const Window& receiver) {
    ComesTrue([&] {
        receiver.Press(VK_ESCAPE);
        return ComesTrueSoon([&] { return !program.OpenMenu(); });
    });
    WaitUntilMenuIsGone(program);
}

void RightClick(const Window& control) {
    control.Post(WM_RBUTTONDOWN, MK_RBUTTON, Middle(control));
    control.Post(WM_RBUTTONUP, 0, Middle(control));
}

void DoubleClick(const Window& control) {
    control.Post(WM_LBUTTONDOWN, MK_LBUTTON, Middle(control));
    control.Post(WM_LBUTTONUP, 0, Middle(control));
    control.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, Middle(control));
    control.Post(WM_LBUTTONUP, 0, Middle(control));
}

void PickDate(const Window& picker, int year, int month, int day) {
    TypeFields(picker, {std::to_string(month), std::to_string(day), std::to_string(year)},
               "the date is picked", [&] {
                   const SYSTEMTIME time = Picked(picker);
                   return time.wYear == year && time.wMonth == month && time.wDay == day;
               });
}

void PickTime(const Window& picker, int hour, int minute) {
    const int shownHour = hour % 12 == 0 ? 12 : hour % 12;
    TypeFields(picker, {std::to_string(shownHour), std::to_string(minute), hour < 12 ? "A" : "P"},
               "the time is picked", [&] {
                   const SYSTEMTIME time = Picked(picker);
                   return time.wHour == hour && time.wMinute == minute;
               });
}

SYSTEMTIME Picked(const Window& picker) {
    const Remote<SYSTEMTIME> value(picker);
    picker.Send(DTM_GETSYSTEMTIME, 0, value.Parameter());
    return value.Value();
}

void ClickToolbar(const Window& toolbar, int number) {
    const Remote<RECT> area(toolbar);
    toolbar.Send(TB_GETITEMRECT, static_cast<WPARAM>(number), area.Parameter());
    const RECT button = area.Value();
    const LPARAM place =
        MAKELPARAM((button.left + button.right) / 2, (button.top + button.bottom) / 2);
    toolbar.Post(WM_LBUTTONDOWN, MK_LBUTTON, place);
    toolbar.Post(WM_LBUTTONUP, 0, place);
    // The pointer itself is elsewhere. Without this message, the button would stay highlighted.
    toolbar.Post(WM_MOUSELEAVE);
}

int RowCount(const Window& list) { return static_cast<int>(list.Send(LVM_GETITEMCOUNT)); }

std::string CellText(const Window& list, int row, int column) {
    const RemoteMemory text(list, cellLength * sizeof(wchar_t));
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = static_cast<wchar_t*>(text.Address());
    item.cchTextMax = static_cast<int>(cellLength);
    const Remote<LVITEMW> request(list, item);
    list.Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), request.Parameter());
    wchar_t result[cellLength]{};
    text.Read(result, sizeof result);
    return forms::win32::Narrow(result);
}

void SelectRow(const Window& list, int row) {
    const LPARAM place = PlaceInRow(list, row);
    list.Post(WM_LBUTTONDOWN, MK_LBUTTON, place);
    list.Post(WM_LBUTTONUP, 0, place);
}

void DoubleClickRow(const Window& list, int row) {
    SelectRow(list, row);
    const LPARAM place = PlaceInRow(list, row);
    list.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    list.Post(WM_LBUTTONUP, 0, place);
}

void RightClickRow(const Window& list, int row) {
    const LPARAM place = PlaceInRow(list, row);
    list.Post(WM_RBUTTONDOWN, MK_RBUTTON, place);
    list.Post(WM_RBUTTONUP, 0, place);
}

std::string ColumnHeading(const Window& list, int column) {
    const RemoteMemory text(list, cellLength * sizeof(wchar_t));
    LVCOLUMNW wanted{};
    wanted.mask = LVCF_TEXT;
    wanted.pszText = static_cast<wchar_t*>(text.Address());
    wanted.cchTextMax = static_cast<int>(cellLength);
    const Remote<LVCOLUMNW> request(list, wanted);
    list.Send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), request.Parameter());
    wchar_t result[cellLength]{};
    text.Read(result, sizeof result);
    return forms::win32::Narrow(result);
}

int RowPicture(const Window& list, int row) {
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    const Remote<LVITEMW> request(list, item);
    list.Send(LVM_GETITEMW, 0, request.Parameter());
    return request.Value().iImage;
}

void Select(const Window& comboBox, int index) {
    comboBox.Send(CB_SETCURSEL, static_cast<WPARAM>(index));
    comboBox.Parent().Send(WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(comboBox.handle), CBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(comboBox.handle));
}

void AskHost(const std::string& line) {
    const std::string request = UnixPath(Variable("JOTWRIGHT_ASK_HOST"));
    WriteWholeFile(request + ".new", line + "\n");
    RenameOver(request + ".new", request);
    WaitUntil("the host has done what it was asked for", [&] { return !FileExists(request); });
}

void TakePicture(const std::string& name) { AskHost("picture " + name); }

void TakePicture(const std::string& name, const RECT& part) {
    AskHost("picture " + name + ' ' + std::to_string(part.right - part.left) + 'x' +
            std::to_string(part.bottom - part.top) + '+' + std::to_string(part.left) + '+' +
            std::to_string(part.top));
}

namespace tray {

void Click(const Window& owner) {
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_LBUTTONDOWN);
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_LBUTTONUP);
}

void DoubleClick(const Window& owner) {
    Click(owner);
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_LBUTTONDBLCLK);
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_LBUTTONUP);
}

void RightClick(const Window& owner) {
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_RBUTTONDOWN);
    owner.Post(WM_MOUSEMOVE, trayIconId, WM_RBUTTONUP);
}

bool HasIcon(const Window& owner) {
    NOTIFYICONDATAW nothingNew{};
    nothingNew.cbSize = sizeof nothingNew;
    nothingNew.hWnd = owner.handle;
    nothingNew.uID = trayIconId;
    return ::Shell_NotifyIconW(NIM_MODIFY, &nothingNew) != 0;
}

}  // namespace tray

}  // namespace driver
