#include "forms/Environment.h"

#include "forms/Runtime.h"

namespace forms {

Picture LoadPicture(const std::string& path) { return Machine().pictures->Load(path); }

void SetMousePointer(MousePointer pointer) { Runtime::Current().stage.SetMousePointer(pointer); }

std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request) {
    Runtime& runtime = Runtime::Current();
    std::optional<std::string> chosen;
    runtime.Wait([&] { chosen = runtime.stage.ShowOpenDialog(form, request); });
    return chosen;
}

}  // namespace forms
