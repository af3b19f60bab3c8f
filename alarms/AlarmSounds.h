#pragma once

#include <array>
#include <string>

// The sounds that an alarm can have.
namespace AlarmSounds {

struct BuiltIn {
    const char* caption;
    const char* file;  // below the application folder
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

// Whether the last four characters, blanks around the path aside, are ".wav" in letters of either
// case. The file itself is not looked at.
bool HasWaveExtension(const std::string& path);

}  // namespace AlarmSounds

namespace StandardCode {

// Makes this the sound of every alarm, for this run and for later ones.
void SaveAlarmSetting(const std::string& path);

}  // namespace StandardCode
