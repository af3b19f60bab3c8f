#pragma once

#include <optional>
#include <string>

// The system's ANSI code pages: 1252 in full, and some characters of 932 (Japanese) and 936
// (Chinese), in which some characters have two bytes.
namespace forms::headless {

// Empty if the code page lacks a character of the text.
std::optional<std::string> ToCodePage(int codePage, const std::string& utf8);

// Like the system, takes any byte after the first byte of a pair as the second byte, even a
// quotation mark. An unassigned pair becomes the code page's replacement character.
std::string FromCodePage(int codePage, const std::string& bytes);

}  // namespace forms::headless
