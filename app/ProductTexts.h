#pragma once

// Texts about the program that several windows show, and the program's names in the system.
namespace StandardCode {

// For the splash screen and the About box: "1.0.0".
extern const char* const version;
// For the splash screen and the main window: two lines.
inline constexpr const char* ownershipNotice = "Copyright 2026\r\nThe Jotwright authors";
// For the About box: one line.
inline constexpr const char* ownershipLine =
    "Copyright 2026 The Jotwright authors. Licence: MIT (LICENSE.txt).";
// The user's settings, below HKEY_CURRENT_USER.
inline constexpr const char* registryKey = "Software\\Jotwright";
// The running program holds this mutex.
inline constexpr const char* mutexName = "Local\\Jotwright.Instance";
extern const char* const webSite;
extern const char* const supportContact;

}  // namespace StandardCode
