#include "notes/NoteFile.h"

#include "app/RecordText.h"
#include "forms/Devices.h"
#include "forms/Text.h"

namespace NoteFile {

using RecordText::Quoted;

std::string Encode(const StandardCode::NoteRecord& record, TimeField timeField) {
    const std::string time = timeField == TimeField::Time
                                 ? '#' + forms::FormatTime24(record.AlarmTime) + '#'
                                 : Quoted("#12:00#");
    return RecordText::ToBytes(Quoted(record.Title) + ',' + Quoted(record.Text) + ",#" +
                               forms::FormatIsoDate(record.AlarmDate) + "#," + time + ',' +
                               std::to_string(record.ColorIndex) + ',' +
                               std::to_string(record.FontSize) + ',' + Quoted(record.AlarmState) +
                               ',' + std::to_string(record.AudioAlarm) + ",\"yes\"" +
                               forms::lineBreak);
}

void Decode(const std::string& bytes, StandardCode::NoteRecord& record) {
    RecordText::Reader reader(RecordText::FromBytes(bytes));
    record.Title = reader.Text();
    record.Text = reader.Text();
    record.AlarmDate = reader.Date();
    record.AlarmTime = reader.Date();
    record.ColorIndex = reader.Integer();
    record.FontSize = reader.Integer();
    record.AlarmState = reader.Text();
    record.AudioAlarm = reader.Integer();
    record.Trailer = reader.Text();
}

StandardCode::NoteRecord Read(const std::string& path) {
    StandardCode::NoteRecord record;
    Decode(forms::Machine().files->Read(path), record);
    return record;
}

}  // namespace NoteFile
