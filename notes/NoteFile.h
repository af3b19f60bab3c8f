#pragma once

#include <cstdint>
#include <string>

#include "app/StandardCode.h"

// The file of one note: one record of nine fields.
namespace NoteFile {

// How the alarm time is written. RewrittenText means the text "#12:00#" instead of the time in the
// record. Alarm displays write it when they switch the alarm off.
enum class TimeField { Time, RewrittenText };

// The text of the file. The last field is always "yes". Double quotes in the note's text are
// written unchanged: Parse() finds the end of the text by the seven fields that follow it.
std::string Compose(const StandardCode::NoteRecord& record, TimeField timeField = TimeField::Time);
// Like Compose, as bytes in the encoding of RecordText::ToBytes().
std::string Encode(const StandardCode::NoteRecord& record, TimeField timeField = TimeField::Time);

// Accepts any text. If the text ends with seven fields as Compose() writes them, the note's text is
// everything between the title and these fields. If not, each field ends at its closing quote, at a
// comma or at the line end. A text in place of a date gives the zero date, and a text in place of a
// number gives 0.
//
// After an error, the record holds the fields before it. RuntimeError 62 if there are too few
// fields, 13 for a malformed date between number signs, 6 for a number that does not fit.
void Parse(const std::string& text, StandardCode::NoteRecord& record);
// Like Parse, from the bytes of a file.
void Decode(const std::string& bytes, StandardCode::NoteRecord& record);

// Whether the bytes are a complete file as written by Encode().
bool IsWhole(const std::string& bytes);

// A hash of the bytes. It shows whether a file has changed.
std::uint64_t Fingerprint(const std::string& bytes);

}  // namespace NoteFile
