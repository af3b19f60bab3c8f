#pragma once

// What the program says about itself, in one place for every window that says it.
namespace StandardCode {

// "1.0.0": what the splash screen and the About box show.
extern const char* const version;
// Two lines, shown by the splash screen and the main window.
inline constexpr const char* ownershipNotice = "Jotwright\r\nFree to share";
// One line, for the About box.
inline constexpr const char* ownershipLine = "Jotwright belongs to its authors.";
inline constexpr const char* webSite = "https://jotwright.example/";
inline constexpr const char* supportContact = "support@jotwright.example";

}  // namespace StandardCode
