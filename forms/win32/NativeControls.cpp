#include "forms/win32/NativeControls.h"

#include <algorithm>

#include "forms/win32/FormWindow.h"

namespace forms::win32 {

namespace {

int DepthOf(const Control& control) {
    return control.container == nullptr ? 0 : 1 + DepthOf(*control.container);
}

bool IsOrContains(const Control& outer, const Control* control) {
    while (control != nullptr && control != &outer) {
        control = control->container;
    }
    return control != nullptr;
}

}  // namespace

// The native order of the controls is that of the Tab key, and the first one is on top. So group
// boxes come last, the inner before the outer ones.
std::vector<Control*> NativeControls::Order() const {
    std::vector<Control*> order = window.Model().focus.TabOrder();
    const auto firstFrame = std::stable_partition(
        order.begin(), order.end(),
        [](const Control* control) { return control->kind != ControlKind::Frame; });
    std::stable_sort(firstFrame, order.end(),
                     [](const Control* a, const Control* b) { return DepthOf(*a) > DepthOf(*b); });
    return order;
}

void NativeControls::Create() {
    for (Control* control : window.Model().Controls()) {
        peers.push_back(MakePeer(window, *control));
    }
    const Control* before = nullptr;
    for (const Control* control : Order()) {
        Peer& peer = *Find(*control);
        // The arrow keys move only among the option buttons of one container.
        peer.startsGroup = before == nullptr || control->kind != ControlKind::OptionButton ||
                           before->kind != ControlKind::OptionButton ||
                           before->container != control->container;
        if (control->IsEffectivelyVisible()) {
            peer.Make();
        }
        if (peer.handle != nullptr) {
            before = control;
        }
    }
}

// Creates the native control of a control that was hidden until now, and puts it below the one that
// precedes it in Order().
void NativeControls::MakeLate(Peer& late) {
    late.Make();
    if (late.handle == nullptr) {
        return;
    }
    HWND above = HWND_TOP;
    for (const Control* control : Order()) {
        const Peer& peer = *Find(*control);
        if (&peer == &late) {
            break;
        }
        above = peer.handle != nullptr ? peer.handle : above;
    }
    ::SetWindowPos(late.handle, above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // Some systems do not tell a new control whether the form marks access keys and the focus.
    const LRESULT marks = ::SendMessageW(window.handle, WM_QUERYUISTATE, 0, 0);
    ::SendMessageW(late.handle, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, marks), 0);
}

Peer* NativeControls::Find(const Control& control) const {
    const auto found = std::find_if(peers.begin(), peers.end(), [&control](const auto& peer) {
        return &peer->control == &control;
    });
    return found == peers.end() ? nullptr : found->get();
}

Peer* NativeControls::Find(HWND child) const {
    const auto found = std::find_if(peers.begin(), peers.end(), [child](const auto& peer) {
        return child != nullptr && peer->handle == child;
    });
    return found == peers.end() ? nullptr : found->get();
}

void NativeControls::Apply(const Control& control, Aspect aspect) {
    Peer* changed = Find(control);
    if (changed == nullptr) {
        return;
    }
    const Applying applying(window.state);
    const bool isInherited =
        aspect == Aspect::Bounds || aspect == Aspect::Visible || aspect == Aspect::Enabled;
    if (!isInherited) {
        if (changed->IsMade()) {
            changed->Apply(aspect);
        }
        if (aspect == Aspect::ToolTip) {
            tips.Update(*changed);
        } else if (aspect == Aspect::Default) {
            window.focus.MarkDefaultButton();
        }
        return;
    }
    for (const auto& peer : peers) {
        if (!IsOrContains(control, &peer->control)) {
            continue;
        }
        if (!peer->IsMade()) {
            if (!peer->control.IsEffectivelyVisible()) {
                continue;
            }
            MakeLate(*peer);
        }
        if (aspect == Aspect::Bounds) {
            peer->Layout();
        } else {
            peer->Apply(aspect);
        }
        if (aspect != Aspect::Enabled) {
            tips.Update(*peer);
        }
    }
    if (aspect != Aspect::Bounds) {
        window.focus.MarkDefaultButton();
    }
}

void NativeControls::Layout() {
    if (!window.IsLive()) {
        return;
    }
    const Applying applying(window.state);
    for (const auto& peer : peers) {
        if (peer->IsMade()) {
            peer->Layout();
            peer->Restyle();
            tips.Update(*peer);
        }
    }
    tips.FollowScale();
    window.surface.InvalidateAll();
}

}  // namespace forms::win32
