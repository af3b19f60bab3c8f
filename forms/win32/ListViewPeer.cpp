#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <string>
#include <vector>

#include "forms/Gestures.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Images.h"
#include "forms/win32/Peers.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// A virtual list: the native control holds no rows, and requests the text of the rows that it
// shows.
class ListViewPeer : public Peer {
  public:
    ListViewPeer(FormWindow& formWindow, ListView& peerList)
        : Peer(formWindow, peerList), listView(peerList) {}

    void Create() override {
        CreateNative(WC_LISTVIEWW, listView.accessibleName,
                     WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_OWNERDATA |
                         LVS_NOSORTHEADER | LVS_SHAREIMAGELISTS,
                     WS_EX_CLIENTEDGE);
        ::SendMessageW(handle, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                       LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
        for (std::size_t i = 0; i < listView.columns.size(); ++i) {
            std::wstring heading = Wide(listView.columns[i].heading);
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
            column.pszText = heading.data();
            column.cx = window.scale.Pixels(listView.columns[i].width);
            column.iSubItem = static_cast<int>(i);
            ::SendMessageW(handle, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
        FillWidth();
        MakeImages();
        ShowRows();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Items) {
            ShowRows();
        } else if (aspect == Aspect::Value) {
            ShowSelection();
        } else {
            Peer::Apply(aspect);
        }
    }

    void Restyle() override {
        Peer::Restyle();
        for (std::size_t i = 0; i < listView.columns.size(); ++i) {
            ::SendMessageW(handle, LVM_SETCOLUMNWIDTH, i,
                           window.scale.Pixels(listView.columns[i].width));
        }
        FillWidth();
        MakeImages();
    }

    std::optional<LRESULT> OnNotify(NMHDR& header) override {
        switch (header.code) {
            case LVN_GETDISPINFOW:
                GiveItem(reinterpret_cast<NMLVDISPINFOW&>(header).item);
                return 0;
            case LVN_ODFINDITEMW:
                return FindRow(reinterpret_cast<NMLVFINDITEMW&>(header));
            case LVN_ITEMCHANGED:
                OnItemChanged(reinterpret_cast<NMLISTVIEW&>(header));
                return 0;
            case NM_DBLCLK:
                if (reinterpret_cast<NMITEMACTIVATE&>(header).iItem >= 0) {
                    gestures::DoubleClick(listView);
                }
                return 0;
            case NM_CLICK:
                OnClick(leftButton, reinterpret_cast<NMITEMACTIVATE&>(header));
                return 0;
            case NM_RCLICK:
                OnClick(rightButton, reinterpret_cast<NMITEMACTIVATE&>(header));
                return 1;
            default:
                return std::nullopt;
        }
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) {
            selectedByClick = false;
        }
        if (message == WM_SIZE) {
            // The system also sends this when the scroll bar appears or disappears.
            const LRESULT result = Default(message, wParam, lParam);
            FillWidth();
            return result;
        }
        if (message == WM_PAINT && ShowsEmptyText()) {
            // Repaint the whole list: a text that is drawn over itself looks bolder.
            ::InvalidateRect(handle, nullptr, TRUE);
            const LRESULT result = Default(message, wParam, lParam);
            PaintEmptyText();
            return result;
        }
        // The list reports the release of a button by a notification; see OnNotify. Some of these
        // messages never arrive.
        if (message == WM_LBUTTONUP || message == WM_RBUTTONUP) {
            return std::nullopt;
        }
        return Peer::OnMessage(message, wParam, lParam);
    }

  private:
    void OnClick(int button, const NMITEMACTIVATE& click) {
        // If the row was already selected, the native list sends no LVN_ITEMCHANGED.
        if (click.iItem >= 0 && !selectedByClick) {
            gestures::Select(listView, click.iItem);
            if (!window.IsLive()) {
                return;
            }
        }
        gestures::MouseUp(listView, button, window.scale.Twips(click.ptAction.x),
                          window.scale.Twips(click.ptAction.y));
    }

    void FillWidth() {
        if (listView.columns.empty()) {
            return;
        }
        RECT inside{};
        ::GetClientRect(handle, &inside);
        int room = inside.right;
        const std::size_t last = listView.columns.size() - 1;
        for (std::size_t i = 0; i < last; ++i) {
            room -= static_cast<int>(::SendMessageW(handle, LVM_GETCOLUMNWIDTH, i, 0));
        }
        const int width = std::max(room, window.scale.Pixels(listView.columns[last].width));
        if (width != ::SendMessageW(handle, LVM_GETCOLUMNWIDTH, last, 0)) {
            ::SendMessageW(handle, LVM_SETCOLUMNWIDTH, last, width);
        }
    }

    bool ShowsEmptyText() const { return listView.Rows().empty() && *listView.emptyText != '\0'; }

    // Centres the text below the headings.
    void PaintEmptyText() const {
        RECT area{};
        RECT headings{};
        ::GetClientRect(handle, &area);
        HWND header = reinterpret_cast<HWND>(::SendMessageW(handle, LVM_GETHEADER, 0, 0));
        ::GetClientRect(header, &headings);
        const int margin = window.scale.Pixels(marginOfEmptyText);
        area.top += headings.bottom + margin;
        ::InflateRect(&area, -margin, 0);
        HDC dc = ::GetDC(handle);
        {
            const Selected font(dc, Font());
            const COLORREF back = ::GetPixel(dc, area.left, area.top);
            ::SetTextColor(dc, ReadableOn(back, ::GetSysColor(COLOR_WINDOWTEXT)));
            ::SetBkMode(dc, TRANSPARENT);
            ::DrawTextW(dc, Wide(listView.emptyText).c_str(), -1, &area,
                        DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
        }
        ::ReleaseDC(handle, dc);
    }

    void MakeImages() {
        if (listView.imageList == nullptr) {
            return;
        }
        std::vector<std::string> names;
        for (const auto& image : listView.imageList->images) {
            names.emplace_back(image.resource);
        }
        const int pixels = SystemMetric(SM_CXSMICON, window.scale.dpi);
        ::SendMessageW(handle, LVM_SETIMAGELIST, LVSIL_SMALL,
                       reinterpret_cast<LPARAM>(images::ResourceIcons(names, pixels).handle));
    }

    void ShowRows() {
        updating = true;
        ::SendMessageW(handle, LVM_SETITEMCOUNT, listView.Rows().size(), LVSICF_NOSCROLL);
        updating = false;
        ShowSelection();
        Redraw();
    }

    void ShowSelection() {
        updating = true;
        const int row = listView.SelectedRow();
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        if (SelectedNatively() != row) {
            ::SendMessageW(handle, LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                           reinterpret_cast<LPARAM>(&item));
            if (row >= 0) {
                item.state = item.stateMask;
                ::SendMessageW(handle, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                               reinterpret_cast<LPARAM>(&item));
                ::SendMessageW(handle, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
            }
        }
        updating = false;
    }

    int SelectedNatively() const {
        return static_cast<int>(
            ::SendMessageW(handle, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }

    void OnItemChanged(const NMLISTVIEW& change) {
        if (updating || (change.uChanged & LVIF_STATE) == 0) {
            return;
        }
        const bool was = (change.uOldState & LVIS_SELECTED) != 0;
        const bool is = (change.uNewState & LVIS_SELECTED) != 0;
        const int row = SelectedNatively();
        if (was != is && row != listView.SelectedRow()) {
            selectedByClick = true;
            gestures::Select(listView, row);
        }
    }

    void GiveItem(LVITEMW& item) const {
        const auto& rows = listView.Rows();
        const auto row = static_cast<std::size_t>(item.iItem);
        const bool exists = item.iItem >= 0 && row < rows.size();
        if ((item.mask & LVIF_IMAGE) != 0) {
            item.iImage = exists && item.iSubItem == 0 ? rows[row].image : I_IMAGENONE;
        }
        if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
            const auto column = static_cast<std::size_t>(item.iSubItem);
            const std::wstring text = exists && column < rows[row].texts.size()
                                          ? Wide(rows[row].texts[column])
                                          : std::wstring();
            const auto room = static_cast<std::size_t>(item.cchTextMax - 1);
            const std::size_t length = std::min(text.size(), room);
            std::wmemcpy(item.pszText, text.c_str(), length);
            item.pszText[length] = L'\0';
        }
    }

    // Finds the next row with a text that begins with the typed letters. Returns -1 if there is
    // none.
    LRESULT FindRow(const NMLVFINDITEMW& search) const {
        const auto& rows = listView.Rows();
        // Some systems search with LVFI_SUBSTRING alone, which not every header defines.
        constexpr UINT forText = LVFI_STRING | LVFI_PARTIAL | 0x0004;
        if ((search.lvfi.flags & forText) == 0 || rows.empty()) {
            return -1;
        }
        const std::size_t length = std::wcslen(search.lvfi.psz);
        const auto start = static_cast<std::size_t>(std::max(search.iStart, 0));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::size_t row = (start + i) % rows.size();
            for (const std::string& text : rows[row].texts) {
                const std::wstring wide = Wide(text);
                if (!wide.empty() && ::_wcsnicmp(wide.c_str(), search.lvfi.psz, length) == 0) {
                    return static_cast<LRESULT>(row);
                }
            }
        }
        return -1;
    }

    static constexpr int marginOfEmptyText = 240;  // twips

    ListView& listView;
    bool updating = false;
    bool selectedByClick = false;  // the last press of a button changed the row
};

}  // namespace

std::unique_ptr<Peer> MakeListViewPeer(FormWindow& window, ListView& listView) {
    return std::make_unique<ListViewPeer>(window, listView);
}

}  // namespace forms::win32
