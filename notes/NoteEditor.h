#pragma once

namespace forms {
class Form;
}

// The window of an open note, as the store and the windows above it know it.
class NoteEditor {
  public:
    virtual forms::Form& Window() = 0;
    // Saves because the program ends, whatever the user would have been asked. False if the note is
    // neither in its file nor in a recovery copy.
    virtual bool SaveBeforeTheEnd() = 0;

  protected:
    ~NoteEditor() = default;
};
