#include <string>

#include "alarms/frmKillAlarm.h"
#include "app/Main.h"
#include "forms/Devices.h"
#include "forms/Runtime.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/MakeStage.h"
#include "info/dlgInput.h"
#include "info/frmHelp.h"
#include "info/frmSplash.h"

// Shows a window that the program never opens, or opens only briefly, so that its picture can be
// taken.
// usage: spare_windows frmHelp|dlgInput|frmKillAlarm|frmSplash
int main(int count, char** arguments) {
    const std::string name = count > 1 ? arguments[1] : "";
    const forms::ApplicationInfo& application = StandardCode::applicationInfo;
    const auto stage = forms::win32::MakeStage(application);
    forms::Machine() = forms::win32::MakeDevices(application);
    forms::Runtime runtime(*stage, application.name);
    runtime.Run([&name] {
        if (name == "frmHelp") {
            forms::Default<frmHelp>().Show();
        } else if (name == "dlgInput") {
            forms::Default<dlgInput>().Show();
        } else if (name == "frmKillAlarm") {
            forms::Default<frmKillAlarm>().Show();
        } else if (name == "frmSplash") {
            forms::Default<frmSplash>().Show();
        }
    });
    return 0;
}
