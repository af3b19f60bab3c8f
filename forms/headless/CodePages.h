#pragma once

#include <optional>
#include <string>

// The system's ANSI code pages: 1252 whole; of 932 (Japanese) and 936 (Chinese), which have
// characters of two bytes, a handful.
namespace forms::headless {

// Nothing if a character does not fit.
std::optional<std::string> ToCodePage(int codePage, const std::string& utf8);

// As the system does it, the first byte of a pair takes the next one with it, whatever that is,
// also a quotation mark; a pair that stands for nothing becomes one default character.
std::string FromCodePage(int codePage, const std::string& bytes);

}  // namespace forms::headless
