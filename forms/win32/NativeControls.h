#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "forms/win32/Peer.h"
#include "forms/win32/ToolTips.h"

namespace forms::win32 {

class FormWindow;

// The native controls of a form: a peer for each control of the model, and their tool tips. The
// command number of a control is firstId plus its place in the form.
class NativeControls {
  public:
    static constexpr int firstId = 100;

    explicit NativeControls(FormWindow& formWindow) : tips(formWindow), window(formWindow) {}
    NativeControls(const NativeControls&) = delete;
    NativeControls& operator=(const NativeControls&) = delete;

    void Create();
    // In the order of the form's controls; empty until Create. The native control of a hidden
    // control is created when it is first shown.
    const std::vector<std::unique_ptr<Peer>>& Peers() const { return peers; }
    Peer* Find(const Control& control) const;
    Peer* Find(HWND child) const;
    // Called when the model has changed.
    void Apply(const Control& control, Aspect aspect);
    // Called when the window's resolution or the user's settings have changed.
    void Layout();

    ToolTips tips;

  private:
    std::vector<Control*> Order() const;
    void MakeLate(Peer& late);

    FormWindow& window;
    std::vector<std::unique_ptr<Peer>> peers;
};

}  // namespace forms::win32
