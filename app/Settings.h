#pragma once

#include <cstdint>
#include <string>

// The user's settings. They are not cached: every read goes to the store.
namespace Settings {

// One value of the store, under its section and its key.
template <class T>
struct Setting {
    const char* section;
    const char* key;

    // Returns 0 or an empty text if the store has no such value. Numbers are stored as text. A
    // number outside the range of 16 bits becomes the nearest number in the range; RuntimeError 13
    // if the text is not a number.
    T Read() const { return ReadOr(T()); }
    // Like Read, but returns current if the store has no such value.
    T ReadOr(const T& current) const;
    void Write(const T& value) const;
};

using Number = Setting<std::int16_t>;
using Text = Setting<std::string>;

template <>
std::int16_t Number::ReadOr(const std::int16_t& current) const;
template <>
void Number::Write(const std::int16_t& value) const;
template <>
std::string Text::ReadOr(const std::string& current) const;
template <>
void Text::Write(const std::string& value) const;

inline constexpr Number defaultColor{"Options", "DefaultColor"};        // 0 white to 5 gray
inline constexpr Number defaultFontSize{"Options", "DefaultFontSize"};  // 0 to 3: 10 to 16 points
inline constexpr Number windowOnTop{"Options", "WindowOnTop"};
inline constexpr Number startCookoo{"Options", "StartCookoo"};
inline constexpr Number showDateTime{"Options", "ShowDateTime"};  // 1: hidden
inline constexpr Number noteLoops{"Options", "NoteLoops"};
inline constexpr Number isService{"Options", "IsService"};  // 1: starts with Windows
inline constexpr Text alarm{"Config", "Alarm"};             // full path of the alarm sound
inline constexpr Number viewTips{"Startup", "View Tips"};   // 1: no tips at start-up

}  // namespace Settings
