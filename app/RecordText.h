#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/DateTime.h"

// The format of the files of notes and weekly alarms: records of comma-separated fields. A field is
// a text between double quotes, a date or time between number signs, or a bare integer. Texts have
// no escapes.
namespace RecordText {

// Encodes a text for a file: in the system's ANSI code page if that has every character, otherwise
// in UTF-8 after a byte order mark.
std::string ToBytes(const std::string& text);
// Decodes a file in either encoding to UTF-8, and applies WithoutZeros(). Accepts any bytes.
std::string FromBytes(const std::string& bytes);

// Replaces every zero character with a blank. A text box would show nothing after a zero character,
// and the next save would lose that text.
std::string WithoutZeros(std::string text);
// Makes every line break CR LF. A text box would join lines that end in anything else.
std::string WithLineBreaks(std::string_view text);

std::string Quoted(const std::string& text);

// Reads the fields of a file in order, across line ends. Each call raises RuntimeError 62 if no
// field is left.
class Reader {
  public:
    explicit Reader(std::string fileText) : text(std::move(fileText)) {}

    // Reads from quote to quote, line breaks included. Without an opening quote, reads up to the
    // next comma or line end. If the closing quote is missing, reads the rest of the file.
    std::string Text();
    // Like Text, for the last field but one of a line. A text that begins with a quote may contain
    // quotes: it ends at the first quote after which exactly one more field follows on the line. If
    // there is no such quote, reads the field as Text does.
    std::string TextBeforeLastField();
    // Reads a date ("yyyy-mm-dd" or "m/d/yyyy"), a time (see base::ParseTime()) or both, with or
    // without number signs, quoted or not. An empty field without quotes is the zero date.
    // RuntimeError 13 for anything else.
    base::DateTime Date();
    // Like Date, but a text that is neither between number signs nor a date gives the zero date.
    base::DateTime DateOrZero();
    // Gives 0 if the text is not a number. RuntimeError 6 if the number does not fit into 16 bits.
    std::int16_t IntegerOrZero();

  private:
    struct Field {
        std::string text;
        bool quoted = false;
    };

    Field Next();
    // Reads the field that ends at this place. A quoted field ends at its closing quote.
    Field Take(std::size_t end, bool quoted);
    bool StartsWithQuote();
    // Whether exactly one field lies between this place and the end of its line.
    bool IsLastField(std::size_t place) const;
    void SkipBlanks();
    void SkipDelimiter();

    std::string text;
    std::size_t position = 0;
};

}  // namespace RecordText
