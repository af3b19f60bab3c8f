#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/DateTime.h"

// The format of the files of notes and weekly alarms: comma-separated records of texts between
// double quotes, dates and times between number signs, and bare integers. Texts have no escapes.
namespace RecordText {

// The bytes of a file: in the system's ANSI code page if it has every character, otherwise in UTF-8
// after a byte order mark.
std::string ToBytes(const std::string& text);
// The UTF-8 text of a file in either encoding, without zero characters. Accepts any bytes.
std::string FromBytes(const std::string& bytes);

// Replaces every zero character by a blank. A text box would show nothing after a zero character,
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
    // next comma or line end. If the closing quote is missing, takes all that is left.
    std::string Text();
    // Like Text, for the last field but one of a line. A text that begins with a quote may contain
    // quotes: it ends at the first quote after which exactly one more field follows on the line. If
    // there is no such quote, the text is read as by Text.
    std::string TextBeforeLastField();
    // Reads "yyyy-mm-dd", "hh:mm:ss" or both, with or without number signs, quoted or not. An empty
    // field is the zero date. RuntimeError 13 for anything else.
    base::DateTime Date();
    // Like Date, but a text that is neither between number signs nor a date gives the zero date.
    base::DateTime DateOrZero();
    // Gives 0 if the text is not a number. RuntimeError 6 if the number does not fit.
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
