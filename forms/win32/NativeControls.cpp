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

// The order of creation determines the order of the Tab key, and the first native control is on
// top. So group boxes are created last, the inner before the outer ones.
void NativeControls::Create() {
    const Form& form = window.Model();
    for (Control* control : form.Controls()) {
        peers.push_back(MakePeer(window, *control));
    }
    std::vector<Control*> order = form.focus.TabOrder();
    const auto firstFrame = std::stable_partition(
        order.begin(), order.end(),
        [](const Control* control) { return control->kind != ControlKind::Frame; });
    std::stable_sort(firstFrame, order.end(),
                     [](const Control* a, const Control* b) { return DepthOf(*a) > DepthOf(*b); });
    const Peer* before = nullptr;
    for (const Control* control : order) {
        Peer& peer = *Find(*control);
        // The arrow keys move only among the option buttons of one container.
        peer.startsGroup = before == nullptr || control->kind != ControlKind::OptionButton ||
                           before->control.kind != ControlKind::OptionButton ||
                           before->control.container != control->container;
        peer.Create();
        if (peer.handle != nullptr) {
            before = &peer;
        }
    }
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
        changed->Apply(aspect);
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
        peer->Layout();
        peer->Restyle();
        tips.Update(*peer);
    }
    tips.FollowScale();
    window.surface.InvalidateAll();
}

}  // namespace forms::win32
