#pragma once

#include "app/StandardCode.h"

// The window of an open note, as EditedNote and the files of higher layers know it.
class NoteEditor {
  public:
    virtual forms::Form& Window() = 0;
    // The note as the window shows it.
    virtual StandardCode::NoteRecord Record() = 0;
    // Whether Record() would equal this record. Does not copy the text: a hundred editors call this
    // each second.
    virtual bool Shows(const StandardCode::NoteRecord& record) = 0;
    // Saves the note without a question, because the program ends. A note that cannot be saved is
    // kept for the next start.
    virtual void SaveBeforeTheEnd() = 0;

  protected:
    ~NoteEditor() = default;
};
