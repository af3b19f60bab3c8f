#include "app/Main.h"
#include "forms/Devices.h"
#include "forms/Runtime.h"
#include "forms/win32/LibrarySearch.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/MakeStage.h"

int main() {
    forms::win32::RestrictLibrarySearch();
    // The stage is never destroyed: the end of the process removes the remaining windows at once.
    const forms::ApplicationInfo& application = StandardCode::applicationInfo;
    forms::Stage& stage = *forms::win32::MakeStage(application).release();
    forms::Machine() = forms::win32::MakeDevices(application);
    forms::Runtime runtime(stage, application.name);
    runtime.Run(StandardCode::Main);
    return 0;
}
