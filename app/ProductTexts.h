#pragma once

// Texts about the program that several windows show.
namespace StandardCode {

// For the splash screen and the About box: "1.0.0".
extern const char* const version;
// For the splash screen and the main window: two lines.
inline constexpr const char* ownershipNotice = "Jotwright\r\nFree to share";
// For the About box: one line.
inline constexpr const char* ownershipLine = "Jotwright belongs to its authors.";
inline constexpr const char* webSite = "https://jotwright.example/";
inline constexpr const char* supportContact = "support@jotwright.example";

}  // namespace StandardCode
