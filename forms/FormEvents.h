#pragma once

#include "forms/Shortcut.h"

namespace forms {

// Why a form is unloaded.
enum class UnloadMode { Code, CloseBox, SessionEnd };

// The event handlers that the class of a form may override.
class FormEvents {
  public:
    virtual void Design() {}           // captions, places, handlers of the controls
    virtual void Form_Initialize() {}  // once for each instance, after Design
    virtual void Form_Load() {}
    virtual void Form_Activate() {}  // the form has become the program's active one
    virtual void Form_Resize() {}    // the form was moved or sized, or is about to be shown
    virtual void Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    virtual void Form_MouseUp(int /*button*/, int /*x*/, int /*y*/) {}  // twips
    // x and y are in twips. For the callback of an icon in the notification area (see
    // IsTrayCallback), x is the message number times TwipsPerPixelX().
    virtual void Form_MouseMove(int /*button*/, int /*x*/, int /*y*/) {}

    // The control or menu entry of this form that the key stands for now. Empty if there is none.
    virtual ShortcutTarget TargetOf(Shortcut /*key*/) { return {}; }

  protected:
    ~FormEvents() = default;
};

}  // namespace forms
