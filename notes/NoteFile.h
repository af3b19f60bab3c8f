#pragma once

#include <cstdint>
#include <string>

#include "app/StandardCode.h"

// The file of one note: one record of nine fields.
namespace NoteFile {

// How the alarm time stands in the file: as a time, or as the rewriter of a fired note leaves it,
// which is the text "#12:00#" whatever the record's time is.
enum class TimeField { Time, RewrittenText };

// The text of the file. The last field is always "yes". Double quotes in the note's text stand as
// they are: Parse() finds the end of the text by the seven fields that follow it.
std::string Compose(const StandardCode::NoteRecord& record, TimeField timeField = TimeField::Time);
// The same as bytes, in the encoding of RecordText::ToBytes().
std::string Encode(const StandardCode::NoteRecord& record, TimeField timeField = TimeField::Time);

// Takes any text. If seven fields as Compose() writes them end it, the note's text is all that lies
// between the title and them. If not, each field ends at its quote, comma or line end, a text that
// is no date is the zero date, and one that is no number is 0. After an error the record holds the
// fields before it. RuntimeError 62 if fields run out, 13 for a malformed date between number
// signs, 6 for a number that does not fit.
void Parse(const std::string& text, StandardCode::NoteRecord& record);
// The same from the bytes of a file.
void Decode(const std::string& bytes, StandardCode::NoteRecord& record);

// Whether the bytes are a whole file as Encode() makes it.
bool IsWhole(const std::string& bytes);

// Tells the contents of a file from those that it had before.
std::uint64_t Fingerprint(const std::string& bytes);

}  // namespace NoteFile
