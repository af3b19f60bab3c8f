#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/DateTime.h"

// The comma-separated records that the program keeps its notes and weekly alarms in: texts between
// double quotes as they stand, dates and times between number signs, bare integers.
namespace RecordText {

// The bytes of a file: the system's ANSI code page where every character fits it, otherwise UTF-8
// behind a byte order mark.
std::string ToBytes(const std::string& text);
// The UTF-8 text of a file in either encoding, without zero characters. Takes any bytes.
std::string FromBytes(const std::string& bytes);

// A blank for every zero character: a text box shows nothing of what follows one, and what it does
// not show would be lost with the next save.
std::string WithoutZeros(std::string text);
// CR LF for every line break: text boxes run the lines together at any other.
std::string WithLineBreaks(std::string_view text);

std::string Quoted(const std::string& text);

// Reads the fields of a file one after the other, across its line ends. Each call raises
// RuntimeError 62 where no field is left.
class Reader {
  public:
    explicit Reader(std::string fileText) : text(std::move(fileText)) {}

    // From quote to quote, line breaks included; without a quote up to the next comma or line end.
    // A missing closing quote takes all that is left.
    std::string Text();
    // As Text, for the last but one field of a line. A text that begins with a quote may hold
    // quotes itself: it ends at the first quote that one more field follows up to the end of the
    // line. If there is none it is read as by Text.
    std::string TextBeforeLastField();
    // "yyyy-mm-dd", "hh:mm:ss" or both, with or without number signs, quoted or not; nothing at all
    // is the zero date. RuntimeError 13 for anything else.
    base::DateTime Date();
    // The same, but a text that is not between number signs is the zero date if it is no date.
    base::DateTime DateOrZero();
    // A text that is no number is 0. RuntimeError 6 if the number does not fit.
    std::int16_t IntegerOrZero();

  private:
    struct Field {
        std::string text;
        bool quoted = false;
    };

    Field Next();
    // Reads the field up to this place, which holds its closing quote if it has an opening one.
    Field Take(std::size_t end, bool quoted);
    bool StartsWithQuote();
    // Whether one field and no more lies between this place and the end of its line.
    bool IsLastField(std::size_t place) const;
    void SkipBlanks();
    void SkipDelimiter();

    std::string text;
    std::size_t position = 0;
};

}  // namespace RecordText
