#pragma once

#include "app/StandardCode.h"

// The window of an open note, as EditedNote and higher layers see it.
class NoteEditor {
  public:
    virtual forms::Form& Window() = 0;
    // The note as the window shows it.
    virtual StandardCode::NoteRecord Record() = 0;
    // Whether Record() would equal this record, apart from title and trailer. Does not copy the
    // text: a hundred editors call this each second.
    virtual bool Shows(const StandardCode::NoteRecord& record) = 0;
    // Saves the note without a question, because the program ends. If it cannot be saved, it is
    // kept for the next start.
    virtual void SaveBeforeTheEnd() = 0;

  protected:
    ~NoteEditor() = default;
};
