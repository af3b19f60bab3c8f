#pragma once

#include <string>

#include "app/StandardCode.h"

// The file of one note: one record of nine fields.
namespace NoteFile {

// How the alarm time stands in the file: as a time, or as the rewriter of a fired note leaves it,
// which is the text "#12:00#" whatever the record's time is.
enum class TimeField { Time, RewrittenText };

// The bytes of the file. The last field is always "yes". A double quote in a text cannot be kept:
// it is written as it stands and ends the field when the file is read.
std::string Encode(const StandardCode::NoteRecord& record, TimeField timeField = TimeField::Time);

// Takes any bytes. Fields are stored as they are read: after an error the record holds those before
// it. RuntimeError 62 where fields run out, 13 or 6 where one cannot be converted.
void Decode(const std::string& bytes, StandardCode::NoteRecord& record);

// The note in this file; the errors of Decode and those of reading.
StandardCode::NoteRecord Read(const std::string& path);

}  // namespace NoteFile
