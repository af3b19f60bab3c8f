#include "tests/windows/Hands.h"

#include "tests/windows/Gestures.h"
#include "tests/windows/Needs.h"

namespace driver::hands {

namespace {

bool HostHasHands() { return Has("JOTWRIGHT_ASK_HOST"); }

INPUT KeyInput(WORD key, bool release) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = release ? DWORD{KEYEVENTF_KEYUP} : 0;
    return input;
}

void SendButton(DWORD event) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = event;
    ::SendInput(1, &input, sizeof input);
}

}  // namespace

void MoveTo(int x, int y) {
    if (HostHasHands()) {
        AskHost("mousemove " + std::to_string(x) + ' ' + std::to_string(y));
    } else {
        ::SetCursorPos(x, y);
    }
}

void MoveBy(int right, int down) {
    if (HostHasHands()) {
        AskHost("mousemove_relative " + std::to_string(right) + ' ' + std::to_string(down));
    } else {
        POINT place{};
        ::GetCursorPos(&place);
        ::SetCursorPos(place.x + right, place.y + down);
    }
}

void Press() {
    if (HostHasHands()) {
        AskHost("mousedown 1");
    } else {
        SendButton(MOUSEEVENTF_LEFTDOWN);
    }
}

void Release() {
    if (HostHasHands()) {
        AskHost("mouseup 1");
    } else {
        SendButton(MOUSEEVENTF_LEFTUP);
    }
}

void TypeDigit(char digit) {
    if (HostHasHands()) {
        AskHost(std::string("key ") + digit);
    } else {
        PressKeys({static_cast<WORD>(digit)});
    }
}

void TypeKeys(const std::string& text) {
    for (const char character : text) {
        const SHORT key = ::VkKeyScanW(static_cast<unsigned char>(character));
        PressKeys({static_cast<WORD>(key & 0xFF)});
    }
}

void PressKeys(const std::vector<WORD>& virtualKeys) {
    NeedDesktop();
    std::vector<INPUT> inputs;
    for (auto key = virtualKeys.begin(); key != virtualKeys.end(); ++key) {
        inputs.push_back(KeyInput(*key, false));
    }
    for (auto key = virtualKeys.rbegin(); key != virtualKeys.rend(); ++key) {
        inputs.push_back(KeyInput(*key, true));
    }
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace driver::hands
