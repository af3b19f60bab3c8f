#include "forms/win32/NativeMenus.h"

#include <algorithm>

#include "forms/win32/Utf.h"

namespace forms::win32 {

void NativeMenus::AssignIds(const Form& form) {
    if (entries.empty()) {
        for (Menu* menu : form.Menus()) {
            AssignIds(*menu);
        }
    }
}

void NativeMenus::AssignIds(Menu& menu) {
    entries.push_back(&menu);
    for (Menu* entry : menu.entries) {
        AssignIds(*entry);
    }
}

int NativeMenus::IdOf(const Menu& menu) const {
    return firstId +
           static_cast<int>(std::find(entries.begin(), entries.end(), &menu) - entries.begin());
}

void NativeMenus::AppendEntries(HMENU to, const std::vector<Menu*>& from,
                                std::map<HMENU, const Menu*>* made) const {
    for (const Menu* menu : from) {
        if (!menu->visible) {
            continue;
        }
        if (menu->IsSeparator()) {
            ::AppendMenuW(to, MF_SEPARATOR, 0, nullptr);
            continue;
        }
        UINT flags = MF_STRING;
        flags |= menu->enabled ? UINT{MF_ENABLED} : UINT{MF_GRAYED};
        flags |= menu->checked ? UINT{MF_CHECKED} : UINT{MF_UNCHECKED};
        auto id = static_cast<UINT_PTR>(IdOf(*menu));
        if (!menu->entries.empty()) {
            HMENU popup = ::CreatePopupMenu();
            AppendEntries(popup, menu->entries, made);
            if (made != nullptr) {
                (*made)[popup] = menu;
            }
            flags |= MF_POPUP;
            id = reinterpret_cast<UINT_PTR>(popup);
        }
        ::AppendMenuW(to, flags, id, Wide(menu->caption()).c_str());
    }
}

void NativeMenus::MakeBar(HWND window, const Form& form) {
    AssignIds(form);
    std::vector<Menu*> inBar;
    for (Menu* menu : form.Menus()) {
        if (menu->inMenuBar && menu->visible) {
            inBar.push_back(menu);
        }
    }
    HMENU before = ::GetMenu(window);
    HMENU bar = nullptr;
    barPopups.clear();
    if (!inBar.empty()) {
        bar = ::CreateMenu();
        AppendEntries(bar, inBar, &barPopups);
    }
    if (bar != before) {
        ::SetMenu(window, bar);
        ::DestroyMenu(before);
    }
}

HMENU NativeMenus::MakePopup(const Menu& menu) {
    AssignIds(menu.form);
    HMENU popup = ::CreatePopupMenu();
    AppendEntries(popup, menu.entries, nullptr);
    return popup;
}

void NativeMenus::Refresh(HMENU popup) {
    const auto found = barPopups.find(popup);
    if (found == barPopups.end()) {
        return;
    }
    const Menu& menu = *found->second;
    while (::GetMenuItemCount(popup) > 0) {
        barPopups.erase(::GetSubMenu(popup, 0));
        ::DeleteMenu(popup, 0, MF_BYPOSITION);
    }
    AppendEntries(popup, menu.entries, &barPopups);
}

void NativeMenus::Apply(HWND window, const Menu& menu, Aspect aspect) {
    if (menu.parent == nullptr) {
        if (menu.inMenuBar) {
            MakeBar(window, menu.form);
            ::DrawMenuBar(window);
        }
        return;
    }
    // The menu with this entry may be open now. A closed menu is updated before it opens.
    HMENU bar = ::GetMenu(window);
    const auto id = static_cast<UINT>(IdOf(menu));
    if (aspect == Aspect::Enabled) {
        ::EnableMenuItem(bar, id, menu.enabled ? MF_ENABLED : MF_GRAYED);
    } else if (aspect == Aspect::Checked) {
        ::CheckMenuItem(bar, id, menu.checked ? MF_CHECKED : MF_UNCHECKED);
    }
}

Menu* NativeMenus::Find(int id) const {
    const auto place = static_cast<std::size_t>(id) - firstId;
    return place < entries.size() ? entries[place] : nullptr;
}

}  // namespace forms::win32
