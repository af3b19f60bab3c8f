#pragma once

#include <cstdint>
#include <string>

// The user's settings, read from the store at the moment of use; a missing one has the default that
// the reader gives.
namespace Settings {

namespace Options {
inline constexpr const char* section = "Options";
inline constexpr const char* defaultColor = "DefaultColor";        // 0 white to 5 gray
inline constexpr const char* defaultFontSize = "DefaultFontSize";  // 0 to 3: 10 to 16 points
inline constexpr const char* windowOnTop = "WindowOnTop";
inline constexpr const char* startCookoo = "StartCookoo";
inline constexpr const char* showDateTime = "ShowDateTime";  // "1" hides them
inline constexpr const char* noteLoops = "NoteLoops";
inline constexpr const char* isService = "IsService";
}  // namespace Options

namespace Config {
inline constexpr const char* section = "Config";
inline constexpr const char* alarm = "Alarm";  // full path of the alarm sound
}  // namespace Config

namespace Startup {
inline constexpr const char* section = "Startup";
inline constexpr const char* viewTips = "View Tips";  // "1" suppresses the tips
}  // namespace Startup

std::string Read(const std::string& section, const std::string& key,
                 const std::string& defaultValue);
std::string Read(const std::string& section, const std::string& key, int defaultValue);
// A number outside the range of 16 bits counts as the nearest one inside. RuntimeError 13 if the
// value is no number.
std::int16_t ReadInteger(const std::string& section, const std::string& key, int defaultValue);

void Write(const std::string& section, const std::string& key, const std::string& value);
void Write(const std::string& section, const std::string& key, int value);

}  // namespace Settings
