#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/DateTime.h"

// The seven weekly alarms: their file and when they are due.
namespace SpecialAlarmsFile {

constexpr std::size_t rowCount = 7;

struct Row {
    std::string Day;  // English weekday name
    base::DateTime Time;
    std::string Message;
    std::int16_t Enabled = 0;  // 1: enabled

    bool operator==(const Row&) const = default;
};

std::string Folder();  // without a trailing backslash
std::string Path();

// Writes one line for each row. A message is written unchanged, double quotes included. If other
// rows would be read from these lines, blanks take the place of line breaks in the messages.
std::string Encode(const std::array<Row, rowCount>& rows);

// Appends every complete row, at most seven. Accepts any bytes. RuntimeError 62 if there are fewer
// than seven rows, 13 or 6 if a field cannot be converted.
//
// A message ends at the first double quote after which only the last field of the line follows. So
// each message without line breaks is read back as it was written, with all its quotes. If the file
// gives more rows when messages end at their first quote, it is read in that way.
void Decode(const std::string& bytes, std::vector<Row>& rows);

// The bytes of the file. Empty if there is no file. If another program holds the file, Read retries
// for a short time; see Patience. RuntimeErrors are those of forms::FileSystem.
std::optional<std::string> Read();
// Replaces the whole file, and creates the folder if it is missing. If the file cannot be read or
// does not hold the known bytes, it goes to the Recycle Bin first, or ".replaced" is added to its
// name. If a RuntimeError is raised, the file has not been replaced.
void Write(const std::array<Row, rowCount>& rows, const std::optional<std::string>& known);

// Settles the temporary files that a killed program left during Write(). If the file is missing, a
// whole temporary file takes its place; otherwise they are removed. Never raises an error.
void AdoptLeftovers();

// Whether the row is enabled and due at this second of the week. A row whose time has a date is
// never due.
bool IsDue(const Row& row, base::DateTime now);

// A row of the shared arrays, index 0 to 6.
Row SharedRow(std::size_t index);
void StoreSharedRow(std::size_t index, const Row& row);
// Stores the first rows, at most rowCount. The rows after them stay unchanged.
void StoreSharedRows(std::span<const Row> rows);

}  // namespace SpecialAlarmsFile

namespace StandardCode {

// Fills the shared arrays from the file. Without a file they stay unchanged. An error ends the
// reading silently, and the rows before it are kept.
void LoadSpecialAlarms();

}  // namespace StandardCode
