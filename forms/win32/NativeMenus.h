#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "forms/Form.h"

namespace forms::win32 {

// The native menus of a form. Every entry has a command number of its own: firstId and on, in the
// order in which the entries are declared, each sub-menu's after their parent's.
class NativeMenus {
  public:
    static constexpr int firstId = 1000;

    NativeMenus() = default;
    NativeMenus(const NativeMenus&) = delete;
    NativeMenus& operator=(const NativeMenus&) = delete;

    // Gives the window its menu bar, or a new one, where the form has one.
    void MakeBar(HWND window, const Form& form);
    // The caller destroys it.
    HMENU MakePopup(const Menu& menu);
    // A menu is about to open; those of the bar are brought up to date.
    void Refresh(HMENU popup);
    void Apply(HWND window, const Menu& menu, Aspect aspect);
    Menu* Find(int id) const;

  private:
    // Numbers the entries, once. A window that has never shown a menu keeps no list of them.
    void AssignIds(const Form& form);
    void AssignIds(Menu& menu);
    int IdOf(const Menu& menu) const;
    void AppendEntries(HMENU to, const std::vector<Menu*>& from,
                       std::map<HMENU, const Menu*>* made) const;

    std::vector<Menu*> entries;  // the one of firstId first
    std::map<HMENU, const Menu*> barPopups;
};

}  // namespace forms::win32
