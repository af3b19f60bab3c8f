#pragma once

namespace forms {
class Form;
}

// The window of an open note, as the store and the windows above it know it.
class NoteEditor {
  public:
    virtual forms::Form& Window() = 0;
    // Saves because the program ends, whatever the user would have been asked. A note that cannot
    // be saved is kept for the next start.
    virtual void SaveBeforeTheEnd() = 0;
    // Leaves the file as it is and the note, if it is not saved, to a recovery copy, from which the
    // next start brings it back. False if the note is neither in its file nor in the copy.
    virtual bool KeepForNextStart() = 0;

  protected:
    ~NoteEditor() = default;
};
