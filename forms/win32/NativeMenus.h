#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "forms/Form.h"

namespace forms::win32 {

// The native menus of a form. Every entry has its own command number, from firstId on, in the order
// of declaration. The entries of a sub-menu follow their parent.
class NativeMenus {
  public:
    static constexpr int firstId = 1000;

    NativeMenus() = default;
    NativeMenus(const NativeMenus&) = delete;
    NativeMenus& operator=(const NativeMenus&) = delete;

    // Gives the window its menu bar, if the form has one. Replaces an earlier menu bar.
    void MakeBar(HWND window, const Form& form);
    // The caller destroys the menu.
    HMENU MakePopup(const Menu& menu);
    // Called when a menu is about to open. Updates the menu if it belongs to the menu bar.
    void Refresh(HMENU popup);
    void Apply(HWND window, const Menu& menu, Aspect aspect);
    Menu* Find(int id) const;

  private:
    // Numbers the entries in the first call. Later calls do nothing.
    void AssignIds(const Form& form);
    void AssignIds(Menu& menu);
    int IdOf(const Menu& menu) const;
    void AppendEntries(HMENU to, const std::vector<Menu*>& from,
                       std::map<HMENU, const Menu*>* made) const;

    std::vector<Menu*> entries;  // in the order of their numbers
    std::map<HMENU, const Menu*> barPopups;
};

}  // namespace forms::win32
