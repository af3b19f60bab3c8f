#include "forms/MsgBox.h"

#include "forms/Runtime.h"

namespace forms {

BoxResult MsgBox(const std::string& text, MsgBoxOptions options, const std::string& caption) {
    const BoxRequest request{text, caption, options};
    Runtime& runtime = Runtime::Current();
    BoxResult result = BoxResult::Ok;
    runtime.Wait([&] { result = runtime.stage.ShowMessageBox(request); });
    return result;
}

}  // namespace forms
