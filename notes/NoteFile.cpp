#include "notes/NoteFile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "app/RecordText.h"
#include "base/Text.h"

namespace NoteFile {

using RecordText::Quoted;

namespace {

// The fields after the note's text: date, time, colour, font size, alarm state, audio, trailer.
constexpr std::size_t fieldsBehindText = 7;

// Checks only the form of the field: the day or the time may be impossible.
bool IsDate(std::string_view field) {
    constexpr std::string_view partsOfDates = "0123456789-/: AMPamp";
    return field.size() > 2 && field.front() == '#' && field.back() == '#' &&
           field.substr(1, field.size() - 2).find_first_not_of(partsOfDates) ==
               std::string_view::npos;
}

bool IsText(std::string_view field) {
    return field.size() >= 2 && field.front() == '"' && field.find('"', 1) == field.size() - 1;
}

bool IsTime(std::string_view field) {
    return IsDate(field) || (IsText(field) && IsDate(field.substr(1, field.size() - 2)));
}

bool IsInteger(std::string_view field) {
    if (field.starts_with('-')) {
        field.remove_prefix(1);
    }
    return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

// The position at which the fields after the note's text begin. Empty if the file does not end with
// these fields.
std::optional<std::size_t> FindFieldsBehindText(std::string_view text) {
    constexpr std::array<bool (*)(std::string_view), fieldsBehindText> isRight{
        IsDate, IsTime, IsInteger, IsInteger, IsText, IsInteger, IsText};
    std::size_t end = text.find_last_not_of("\r\n \t") + 1;
    for (std::size_t field = fieldsBehindText; field-- > 0;) {
        const std::size_t comma = end == 0 ? std::string_view::npos : text.rfind(',', end - 1);
        if (comma == std::string_view::npos ||
            !isRight[field](text.substr(comma + 1, end - comma - 1))) {
            return std::nullopt;
        }
        end = comma;
    }
    return end + 1;
}

// The positions of title and text in a file that ends with the right fields.
struct Places {
    std::size_t titleEnd;  // position of the closing quote
    std::size_t textStart;
    std::size_t textEnd;  // position of the closing quote
    std::size_t rest;     // position of the first field after the text
};

std::optional<Places> FindPlaces(std::string_view text) {
    constexpr std::string_view betweenTitleAndText = "\",\"";
    const auto rest = FindFieldsBehindText(text);
    if (!rest || !text.starts_with('"')) {
        return std::nullopt;
    }
    const std::size_t titleEnd = text.find('"', 1);
    const std::size_t textEnd = *rest - 2;  // the quote before the comma
    if (titleEnd == std::string_view::npos ||
        !text.substr(titleEnd).starts_with(betweenTitleAndText)) {
        return std::nullopt;
    }
    const std::size_t textStart = titleEnd + betweenTitleAndText.size();
    const bool isWhole = textStart <= textEnd && text[textEnd] == '"';
    return isWhole ? std::optional(Places{titleEnd, textStart, textEnd, *rest}) : std::nullopt;
}

// Stores the title and the text in the record. Returns the reader of the fields after them.
RecordText::Reader TakeTitleAndText(const std::string& text, const Places& places,
                                    StandardCode::NoteRecord& record) {
    record.Title = text.substr(1, places.titleEnd - 1);
    record.Text = text.substr(places.textStart, places.textEnd - places.textStart);
    return RecordText::Reader(text.substr(places.rest));
}

void ReadFieldsBehindText(RecordText::Reader reader, StandardCode::NoteRecord& record) {
    record.AlarmDate = reader.DateOrZero();
    record.AlarmTime = reader.DateOrZero();
    record.ColorIndex = reader.IntegerOrZero();
    record.FontSize = reader.IntegerOrZero();
    record.AlarmState = reader.Text();
    record.AudioAlarm = reader.IntegerOrZero();
    record.Trailer = reader.Text();
}

}  // namespace

std::string Compose(const StandardCode::NoteRecord& record, TimeField timeField) {
    const std::string time = timeField == TimeField::Time
                                 ? '#' + base::FormatTime24(record.AlarmTime) + '#'
                                 : Quoted("#12:00#");
    return Quoted(record.Title) + ',' + Quoted(record.Text) + ",#" +
           base::FormatIsoDate(record.AlarmDate) + "#," + time + ',' +
           std::to_string(record.ColorIndex) + ',' + std::to_string(record.FontSize) + ',' +
           Quoted(record.AlarmState) + ',' + std::to_string(record.AudioAlarm) + ",\"yes\"" +
           base::lineBreak;
}

std::string Encode(const StandardCode::NoteRecord& record, TimeField timeField) {
    return RecordText::ToBytes(Compose(record, timeField));
}

void Parse(const std::string& text, StandardCode::NoteRecord& record) {
    if (const auto places = FindPlaces(text)) {
        ReadFieldsBehindText(TakeTitleAndText(text, *places, record), record);
        return;
    }
    RecordText::Reader reader(text);
    record.Title = reader.Text();
    record.Text = reader.Text();
    ReadFieldsBehindText(std::move(reader), record);
}

void Decode(const std::string& bytes, StandardCode::NoteRecord& record) {
    const std::string text = RecordText::FromBytes(bytes);
    const auto places = text == bytes || FindPlaces(text) ? std::nullopt : FindPlaces(bytes);
    if (!places) {
        Parse(text, record);
        return;
    }
    // The code page has characters of two bytes, and FromBytes() has joined the last byte of the
    // title or of the text and the quote after it into one character. So find the fields in the
    // bytes.
    RecordText::Reader reader = TakeTitleAndText(bytes, *places, record);
    record.Title = RecordText::FromBytes(record.Title);
    record.Text = RecordText::FromBytes(record.Text);
    ReadFieldsBehindText(std::move(reader), record);
}

bool IsWhole(const std::string& bytes) {
    return bytes.ends_with(base::lineBreak) &&
           (FindPlaces(RecordText::FromBytes(bytes)) || FindPlaces(bytes));
}

std::uint64_t Fingerprint(const std::string& bytes) {
    // The 64-bit FNV-1a hash.
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return hash;
}

}  // namespace NoteFile
