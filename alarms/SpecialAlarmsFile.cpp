#include "alarms/SpecialAlarmsFile.h"

#include <algorithm>
#include <utility>

#include "app/Patience.h"
#include "app/RecordText.h"
#include "app/SafeFile.h"
#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "forms/Services.h"

namespace SpecialAlarmsFile {

namespace {

std::string TimeField(base::DateTime time) {
    const std::string date = time.HasDate() ? base::FormatIsoDate(time) + ' ' : std::string();
    return '#' + date + base::FormatTime24(time) + '#';
}

struct Reading {
    std::vector<Row> rows;
    std::optional<base::RuntimeError> error;  // ended the reading before the last row
};

Reading ReadAll(const std::string& text, std::string (RecordText::Reader::*readMessage)()) {
    Reading reading;
    RecordText::Reader reader(text);
    try {
        while (reading.rows.size() < rowCount) {
            Row row;
            row.Day = reader.Text();
            row.Time = reader.Date();
            row.Message = (reader.*readMessage)();
            row.Enabled = base::ToInteger16(reader.Text(), base::NumberFormat{});
            reading.rows.push_back(row);
        }
    } catch (const base::RuntimeError& error) {
        reading.error = error;
    }
    return reading;
}

std::string BytesOf(const std::array<Row, rowCount>& rows) {
    std::string text;
    for (const Row& row : rows) {
        text += RecordText::Quoted(row.Day) + ',' + TimeField(row.Time) + ',' +
                RecordText::Quoted(row.Message) + ',' + std::to_string(row.Enabled) +
                base::lineBreak;
    }
    return RecordText::ToBytes(text);
}

// The seven rows, or nothing if they cannot be read.
std::optional<std::vector<Row>> ReadWhole(const std::string& bytes) {
    std::vector<Row> rows;
    try {
        Decode(bytes, rows);
        return rows;
    } catch (const base::RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace

std::string Folder() { return forms::ApplicationPath("\\SpecialAlarms"); }

std::string Path() { return Folder() + "\\SpecialAlarms.txt"; }

std::string Encode(const std::array<Row, rowCount>& rows) {
    std::string bytes = BytesOf(rows);
    if (ReadWhole(bytes) == std::vector(rows.begin(), rows.end())) {
        return bytes;
    }
    // A line break and quotes in one message can look like the end of a row. The window's text
    // boxes have one line, so a line break can come only from a file that another program wrote.
    std::array<Row, rowCount> ofOneLine = rows;
    for (Row& row : ofOneLine) {
        std::replace(row.Message.begin(), row.Message.end(), '\r', ' ');
        std::replace(row.Message.begin(), row.Message.end(), '\n', ' ');
    }
    return BytesOf(ofOneLine);
}

void Decode(const std::string& bytes, std::vector<Row>& rows) {
    const std::string text = RecordText::FromBytes(bytes);
    Reading best = ReadAll(text, &RecordText::Reader::TextBeforeLastField);
    const auto tryOther = [&best](Reading other) {
        if (other.rows.size() > best.rows.size()) {
            best = std::move(other);
        }
    };
    if (best.rows.size() < rowCount) {
        // A row need not be one line: other programs may write the file differently.
        tryOther(ReadAll(text, &RecordText::Reader::Text));
    }
    if (best.rows.size() < rowCount) {
        // In a code page with characters of two bytes, FromBytes() may have joined the last byte of
        // a message and the quote after it into one character. So find the fields in the bytes.
        Reading ofBytes = ReadAll(bytes, &RecordText::Reader::TextBeforeLastField);
        for (Row& row : ofBytes.rows) {
            row.Day = RecordText::FromBytes(row.Day);
            row.Message = RecordText::FromBytes(row.Message);
        }
        tryOther(std::move(ofBytes));
    }
    rows.insert(rows.end(), best.rows.begin(), best.rows.end());
    if (best.error) {
        throw base::RuntimeError(*best.error);
    }
}

std::optional<std::string> Read() {
    forms::FileSystem& disk = *forms::Machine().files;
    return Patience::Try(
        [&] { return disk.FileExists(Path()) ? std::optional(disk.Read(Path())) : std::nullopt; });
}

void Write(const std::array<Row, rowCount>& rows, const std::optional<std::string>& known) {
    forms::FileSystem& disk = *forms::Machine().files;
    if (!disk.FolderExists(Folder())) {
        disk.MakeFolder(Folder());
    }
    const std::string bytes = Encode(rows);
    SafeFile::ReplaceOptions options{.isForeign = true};
    try {
        const auto held = Read();
        options.isKnownToDiffer = held && held != bytes;
        options.isForeign = held && held != known;
    } catch (const base::RuntimeError&) {
        // Putting the file aside reports why it cannot be read.
    }
    SafeFile::ReplaceFile(Path(), bytes, options);
}

void AdoptLeftovers() {
    SafeFile::SettleLeftovers(Folder(), [](const std::string& bytes) {
        const bool isMissing = !forms::Machine().files->FileExists(Path());
        return isMissing && ReadWhole(bytes) ? Path() : std::string();
    });
}

bool IsDue(const Row& row, base::DateTime now) {
    return row.Enabled == 1 && row.Day == forms::Machine().locale->WeekdayName(now) &&
           row.Time == now.TimeOnly();
}

Row SharedRow(std::size_t index) {
    const StandardCode::SharedValues& shared = StandardCode::Shared();
    return {shared.SpecialAlarmDay.at(index), shared.SpecialAlarmTime.at(index),
            shared.SpecialAlarmMessage.at(index), shared.SpecialAlarmEnabled.at(index)};
}

void StoreSharedRow(std::size_t index, const Row& row) {
    StandardCode::SharedValues& shared = StandardCode::Shared();
    shared.SpecialAlarmDay.at(index) = row.Day;
    shared.SpecialAlarmTime.at(index) = row.Time;
    shared.SpecialAlarmMessage.at(index) = row.Message;
    shared.SpecialAlarmEnabled.at(index) = row.Enabled;
}

void StoreSharedRows(std::span<const Row> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        StoreSharedRow(i, rows[i]);
    }
}

}  // namespace SpecialAlarmsFile

namespace StandardCode {

void LoadSpecialAlarms() {
    std::vector<SpecialAlarmsFile::Row> rows;
    try {
        if (const auto bytes = SpecialAlarmsFile::Read()) {
            SpecialAlarmsFile::Decode(*bytes, rows);
        }
    } catch (const base::RuntimeError&) {
        // Keep the rows that could be read.
    }
    SpecialAlarmsFile::StoreSharedRows(rows);
}

}  // namespace StandardCode
