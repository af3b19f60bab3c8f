#include "alarms/AlarmSounds.h"

#include <algorithm>

#include "app/Settings.h"
#include "app/StandardCode.h"
#include "base/Text.h"
#include "forms/Services.h"

namespace AlarmSounds {

std::array<std::string, builtIns.size()> BuiltInPaths() {
    std::array<std::string, builtIns.size()> paths;
    std::transform(builtIns.begin(), builtIns.end(), paths.begin(),
                   [](const BuiltIn& sound) { return forms::ApplicationPath(sound.file); });
    return paths;
}

bool HasWaveExtension(const std::string& path) {
    constexpr std::size_t extensionLength = 4;
    const std::string trimmed = base::Trim(path);
    if (trimmed.size() < extensionLength) {
        return false;
    }
    std::string extension = trimmed.substr(trimmed.size() - extensionLength);
    for (char& character : extension) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return extension == ".wav";
}

}  // namespace AlarmSounds

namespace StandardCode {

void SaveAlarmSetting(const std::string& path) {
    Settings::alarm.Write(path);
    Shared().AlarmSoundPath = path;
}

}  // namespace StandardCode
