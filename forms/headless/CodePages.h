#pragma once

#include <optional>
#include <string>

// The system's ANSI code pages: 1252, and a handful of the characters of 932 (Japanese) and 936
// (Chinese), which have characters of two bytes.
namespace forms::headless {

// Empty if the code page lacks a character of the text.
std::optional<std::string> ToCodePage(int codePage, const std::string& utf8);

// Like the system, takes any byte that follows the first byte of a pair as its second, even a
// quotation mark. An unassigned pair becomes one default character.
std::string FromCodePage(int codePage, const std::string& bytes);

}  // namespace forms::headless
