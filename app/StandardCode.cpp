#include "app/StandardCode.h"

#include "base/RuntimeError.h"

namespace StandardCode {

namespace {

std::size_t IndexOf(int slot) {
    if (slot < 1 || slot > maximumNotes) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(slot - 1);
}

}  // namespace

NoteRecord& NotesTable::operator[](int slot) { return slots[IndexOf(slot)]; }

const NoteRecord& NotesTable::operator[](int slot) const { return slots[IndexOf(slot)]; }

SharedValues& Shared() {
    static SharedValues values;
    return values;
}

SharedSignals& Signals() {
    static SharedSignals signals;
    return signals;
}

void Reset() {
    Shared() = SharedValues{};
    Signals() = SharedSignals{};
}

}  // namespace StandardCode
