#include "app/Main.h"
#include "forms/Devices.h"
#include "forms/Runtime.h"
#include "forms/win32/LibrarySearch.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/MakeStage.h"

int main() {
    forms::win32::RestrictLibrarySearch();
    // Never destroyed: the end of the process removes the remaining windows at once.
    forms::Stage& stage = *forms::win32::MakeStage().release();
    forms::Machine() = forms::win32::MakeDevices();
    forms::Runtime runtime(stage);
    runtime.Run(StandardCode::Main);
    return 0;
}
