#include "forms/CommonDialog.h"

#include "forms/Services.h"

namespace forms {

bool CommonDialog::ShowOpen() {
    const auto chosen = ShowOpenDialog(form, {.initialFolder = initialFolder, .filter = filter});
    if (!chosen || chosen->empty()) {
        return false;
    }
    fileName = *chosen;
    return true;
}

void CommonDialog::ShowHelp() const {
    Machine().shell->ShowHelp(helpFile, static_cast<int>(helpCommand));
}

}  // namespace forms
