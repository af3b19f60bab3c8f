#pragma once

#include <array>
#include <string>

// The sounds that an alarm can have.
namespace AlarmSounds {

struct BuiltIn {
    const char* caption;
    const char* file;  // path in the application folder
};

// In the order of the option buttons of the alarm chooser.
inline constexpr std::array<BuiltIn, 5> builtIns{{
    {"Buzzer Alarm", "\\Alarm buzzer.wav"},
    {"Alert Chime", "\\Alert chime.wav"},
    {"Cuckoo Clock", "\\Cuckoo clock.wav"},
    {"Alarm Clock", "\\Alarm clock.wav"},
    {"Bell Alarm", "\\Bell alarm.wav"},
}};

// Full paths of the built-in sounds.
std::array<std::string, builtIns.size()> BuiltInPaths();

// Whether the path, without blanks around it, ends in ".wav" in upper or lower case. Does not look
// at the file.
bool HasWaveExtension(const std::string& path);

}  // namespace AlarmSounds

namespace StandardCode {

// Makes the file at this path the sound of every alarm, now and after the next start. RuntimeErrors
// if the setting cannot be written.
void SaveAlarmSetting(const std::string& path);

}  // namespace StandardCode
