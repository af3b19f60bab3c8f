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

// The bytes of the file: one line for each row. Messages are unchanged, double quotes included. But
// if Decode() would not give the same rows again, line breaks in the messages become blanks.
std::string Encode(const std::array<Row, rowCount>& rows);

// Appends every complete row before the first error, at most seven. Accepts any bytes. RuntimeError
// 62 if there are fewer than seven rows, 13 or 6 if a field cannot be converted.
//
// A message ends at the first double quote after which only the last field of the line follows. So
// each message without line breaks is read back as it was written, with all its quotes. If the file
// gives more rows when messages end at their first quote, messages end there instead.
void Decode(const std::string& bytes, std::vector<Row>& rows);

// The bytes of the file. Empty if there is no file. If another program holds the file, Read retries
// for a short time; see Patience. RuntimeErrors are those of forms::FileSystem.
std::optional<std::string> Read();
// Replaces the whole file, and creates the folder if it is missing. If the existing file cannot be
// read or does not hold the known bytes, it is put aside first, with the ending ".replaced"; see
// SafeFile::PutAside(). If a RuntimeError is raised, the rows have not been saved.
void Write(const std::array<Row, rowCount>& rows, const std::optional<std::string>& known);

// Removes the temporary files of programs that were killed during Write(). If the alarms' file is
// missing, a complete temporary file takes its place instead. Never raises an error.
void AdoptLeftovers();

// Whether the row is enabled and due at this second of the week. A row whose time has a date is
// never due.
bool IsDue(const Row& row, base::DateTime now);

// A row of the shared arrays, index 0 to 6.
Row SharedRow(std::size_t index);
void StoreSharedRow(std::size_t index, const Row& row);
// Stores these rows, at most rowCount, from index 0 on. The rows after them stay unchanged.
void StoreSharedRows(std::span<const Row> rows);

}  // namespace SpecialAlarmsFile

namespace StandardCode {

// Fills the shared arrays from the file. Without a file they stay unchanged. An error is not
// reported: the rows before it are stored, and those after it stay unchanged.
void LoadSpecialAlarms();

}  // namespace StandardCode
