#include "forms/win32/FormWindow.h"

#include <algorithm>
#include <utility>

#include "forms/Runtime.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/Images.h"
#include "forms/win32/Utf.h"
#include "forms/win32/UtilityWindow.h"

namespace forms::win32 {

namespace {

constexpr wchar_t className[] = L"FormWindow";

// No title bar shows more, and a window with a very long name is not made at all.
constexpr std::size_t longestCaption = 1024;

std::wstring CaptionOf(const Form& form) { return Wide(form.caption()).substr(0, longestCaption); }

// How a form finds its window. Goes with the form, or earlier with its unloading.
struct Link : Form::StageData {
    FormWindow* window = nullptr;
    ~Link() override {
        if (window != nullptr) {
            window->ScheduleDestroy();
        }
    }
};

int DepthOf(const Control& control) {
    return control.container == nullptr ? 0 : 1 + DepthOf(*control.container);
}

}  // namespace

FormWindow::Entry::~Entry() {
    if (--window.entered == 0 && window.destroyScheduled) {
        ::PostMessageW(window.state.utility, UtilityWindow::destroyMessage, 0,
                       reinterpret_cast<LPARAM>(window.handle));
    }
}

FormWindow* FormWindow::Existing(const Form& form) {
    const auto* link = static_cast<const Link*>(form.stageData.get());
    return link != nullptr ? link->window : nullptr;
}

FormWindow* FormWindow::Of(Form& form, StageState& state) {
    if (!form.IsLoaded()) {
        return nullptr;
    }
    if (FormWindow* window = Existing(form); window != nullptr) {
        return window;
    }
    std::unique_ptr<FormWindow> made(new FormWindow(form, state));
    if (!made->CreateBare()) {
        return nullptr;
    }
    // From here on it belongs to its native window, with which it goes.
    FormWindow* window = made.release();
    auto link = std::make_unique<Link>();
    link->window = window;
    form.stageData = std::move(link);
    return window;
}

FormWindow* FormWindow::From(HWND window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() ||
        ::GetClassLongPtrW(window, GCLP_WNDPROC) !=
            reinterpret_cast<ULONG_PTR>(&FormWindow::Procedure)) {
        return nullptr;
    }
    return reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
}

FormWindow::FormWindow(Form& windowForm, StageState& stageState)
    : state(stageState), form(&windowForm), tips(*this) {}

FormWindow::~FormWindow() { std::erase(state.windows, this); }

DWORD FormWindow::Style(const Form& form) {
    switch (form.borderStyle) {
        case BorderStyle::Fixed:
            return WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
        case BorderStyle::Sizable:
            return WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
        case BorderStyle::Dialog:
            return WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
        case BorderStyle::None:
            break;
    }
    return WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
}

DWORD FormWindow::ExtendedStyle(const Form& form) {
    DWORD style = 0;
    if (form.borderStyle == BorderStyle::Dialog) {
        style |= WS_EX_DLGMODALFRAME;
    }
    if (form.showInTaskbar) {
        style |= WS_EX_APPWINDOW;
    }
    return style;
}

bool FormWindow::HasMenuBar(const Form& form) {
    return std::any_of(form.Menus().begin(), form.Menus().end(),
                       [](const Menu* menu) { return menu->inMenuBar && menu->visible; });
}

SIZE FormWindow::FrameSize(const Form& form, int dpi) {
    const RECT frame = FrameAround(Style(form), ExtendedStyle(form), HasMenuBar(form), dpi);
    return SIZE{frame.right - frame.left, frame.bottom - frame.top};
}

// As the model has it, but exact to the pixel where the model asks for a size of the inside.
SIZE FormWindow::OuterSize() const {
    const SIZE frame = FrameSize(*form, dpi);
    const auto exact = [this](int outer, int inner, LONG frameLength) {
        const LONG pixels = Pixels(outer);
        const LONG wanted = Pixels(inner) + frameLength;
        return inner > 0 && form->borderStyle != BorderStyle::Sizable ? wanted : pixels;
    };
    return SIZE{exact(form->width, form->innerWidth, frame.cx),
                exact(form->height, form->innerHeight, frame.cy)};
}

HWND FormWindow::BaseOwner() const {
    // A window that is owned has no button in the task bar.
    return form == nullptr || form->showInTaskbar ? nullptr : state.utility;
}

bool FormWindow::CreateBare() {
    static const ATOM registered = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = &FormWindow::Procedure;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
        description.lpszClassName = className;
        return ::RegisterClassExW(&description);
    }();
    (void)registered;
    const Applying applying(state);
    dpi = SystemDpi();
    const DWORD topMost = form->IsTopMost() ? DWORD{WS_EX_TOPMOST} : DWORD{0};
    const RECT place = WantedPlace();
    beingMade = this;
    handle = ::CreateWindowExW(ExtendedStyle(*form) | topMost, className, CaptionOf(*form).c_str(),
                               Style(*form), place.left, place.top, place.right - place.left,
                               place.bottom - place.top, BaseOwner(), nullptr,
                               ::GetModuleHandleW(nullptr), nullptr);
    beingMade = nullptr;
    if (handle == nullptr) {
        return false;
    }
    state.windows.push_back(this);
    form->left.Adopt(Twips(place.left));
    form->top.Adopt(Twips(place.top));
    ApplyIcon();
    UpdateEnabled();
    return true;
}

void FormWindow::Fill() {
    if (filled) {
        return;
    }
    filled = true;
    const Applying applying(state);
    AdaptToMonitor();
    menus.MakeBar(handle, *form);
    CreateControls();
    MarkDefaultButton(nullptr);
    ::SendMessageW(handle, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
}

// The native order of the controls is the order of the Tab key, and of what lies above what: group
// boxes come last, the inner before the outer ones.
void FormWindow::CreateControls() {
    for (Control* control : form->Controls()) {
        peers.push_back(MakePeer(*this, *control));
    }
    std::vector<Control*> order = form->TabOrder();
    const auto firstFrame = std::stable_partition(
        order.begin(), order.end(),
        [](const Control* control) { return control->kind != ControlKind::Frame; });
    std::stable_sort(firstFrame, order.end(),
                     [](const Control* a, const Control* b) { return DepthOf(*a) > DepthOf(*b); });
    const Peer* before = nullptr;
    for (const Control* control : order) {
        Peer& peer = *PeerOf(*control);
        peer.Create();
        if (peer.handle == nullptr) {
            continue;
        }
        // The arrow keys stay within the option buttons of one container.
        const bool goesOn = before != nullptr && control->kind == ControlKind::OptionButton &&
                            before->control.kind == ControlKind::OptionButton &&
                            before->control.container == control->container;
        if (!goesOn) {
            ::SetWindowLongPtrW(peer.handle, GWL_STYLE,
                                ::GetWindowLongPtrW(peer.handle, GWL_STYLE) | WS_GROUP);
        }
        before = &peer;
    }
    for (const auto& peer : peers) {
        tips.Update(*peer);
    }
}

// The form no longer knows this window, and the window no longer touches the form.
void FormWindow::DetachFromForm() {
    if (auto* link = static_cast<Link*>(form->stageData.get()); link != nullptr) {
        link->window = nullptr;
    }
    form = nullptr;
}

Peer* FormWindow::PeerOf(const Control& control) const {
    const auto found = std::find_if(peers.begin(), peers.end(), [&control](const auto& peer) {
        return &peer->control == &control;
    });
    return found == peers.end() ? nullptr : found->get();
}

Peer* FormWindow::PeerOf(HWND child) const {
    const auto found = std::find_if(peers.begin(), peers.end(), [child](const auto& peer) {
        return child != nullptr && peer->handle == child;
    });
    return found == peers.end() ? nullptr : found->get();
}

int FormWindow::Pixels(int twips) const { return ToPixels(twips, dpi); }

int FormWindow::Twips(int pixels) const { return ToTwips(pixels, dpi); }

int FormWindow::LineThickness() const {
    constexpr int thickness = 15;  // twips
    return std::max(Pixels(thickness), 1);
}

// Both edges are rounded, so that what touches in twips touches in pixels.
RECT FormWindow::AreaOf(const Control& control) const {
    const Rect place = control.PlaceOnForm();
    return RECT{Pixels(place.left), Pixels(place.top), Pixels(place.left + place.width),
                Pixels(place.top + place.height)};
}

HFONT FormWindow::FormFont() const { return fonts::Get(std::string(), 0, false, dpi); }

void FormWindow::Apply(Aspect aspect) {
    const Applying applying(state);
    switch (aspect) {
        case Aspect::Caption:
            ::SetWindowTextW(handle, CaptionOf(*form).c_str());
            break;
        case Aspect::Bounds:
            ApplyBounds();
            break;
        case Aspect::Picture:
            ApplyIcon();
            break;
        case Aspect::BackColor:
            ::RedrawWindow(handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
            break;
        case Aspect::TopMost:
            ::SetWindowPos(handle, form->IsTopMost() ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            break;
        default:
            break;
    }
}

void FormWindow::ApplyIcon() {
    for (const auto& [kind, metric] : {std::pair<WPARAM, int>(ICON_SMALL, SM_CXSMICON),
                                       std::pair<WPARAM, int>(ICON_BIG, SM_CXICON)}) {
        const int pixels = SystemMetric(metric, dpi);
        HICON icon =
            form->icon().path.empty() ? nullptr : images::FileIcon(form->icon().path, pixels);
        if (icon == nullptr) {
            icon = images::ProgramIcon(pixels);
        }
        ::SendMessageW(handle, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    }
}

void FormWindow::UpdateEnabled() {
    // While a box is open, pumps::OthersShutOff decides which windows are enabled.
    if (boxes == 0) {
        const bool canBeUsed = form->IsUsable() || !form->IsVisible();
        if (canBeUsed != (::IsWindowEnabled(handle) != 0)) {
            const Applying applying(state);
            ::EnableWindow(handle, canBeUsed ? TRUE : FALSE);
        }
    }
}

void FormWindow::ApplyToControl(Control& control, Aspect aspect) {
    Peer* changed = PeerOf(control);
    if (changed == nullptr) {
        return;
    }
    const Applying applying(state);
    const bool isInherited =
        aspect == Aspect::Bounds || aspect == Aspect::Visible || aspect == Aspect::Enabled;
    if (!isInherited) {
        changed->Apply(aspect);
        if (aspect == Aspect::ToolTip) {
            tips.Update(*changed);
        } else if (aspect == Aspect::Default) {
            MarkDefaultButton(PeerOf(::GetFocus()));
        }
        return;
    }
    for (const auto& peer : peers) {
        const Control* outer = &peer->control;
        while (outer != nullptr && outer != &control) {
            outer = outer->container;
        }
        if (outer == nullptr) {
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
        MarkDefaultButton(PeerOf(::GetFocus()));
    }
}

void FormWindow::ApplyToMenu(Menu& menu, Aspect aspect) {
    if (filled) {
        const Applying applying(state);
        menus.Apply(handle, menu, aspect);
    }
}

void FormWindow::LayoutControls() {
    for (const auto& peer : peers) {
        peer->Layout();
        peer->Restyle();
        tips.Update(*peer);
    }
    tips.FollowScale();
    ::RedrawWindow(handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void FormWindow::Rescale(int newDpi, const RECT& suggested) {
    const Applying applying(state);
    dpi = newDpi;
    ::SetWindowPos(handle, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                   suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RestoreInnerSize();
    ApplyIcon();
    LayoutControls();
}

// Title bars do not grow as the resolution does, and on some systems not at all.
void FormWindow::RestoreInnerSize() {
    if (!filled || form->innerWidth == 0 || form->borderStyle == BorderStyle::Sizable) {
        return;
    }
    RECT outer{};
    RECT inside{};
    ::GetWindowRect(handle, &outer);
    ::GetClientRect(handle, &inside);
    ::SetWindowPos(handle, nullptr, 0, 0,
                   outer.right - outer.left + Pixels(form->innerWidth) - inside.right,
                   outer.bottom - outer.top + Pixels(form->innerHeight) - inside.bottom,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::UserSettingsChanged() {
    const Applying applying(state);
    LayoutControls();
}

}  // namespace forms::win32
