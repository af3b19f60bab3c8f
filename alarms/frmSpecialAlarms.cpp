#include "alarms/frmSpecialAlarms.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/Grid.h"
#include "base/RuntimeError.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"

using SpecialAlarmsFile::rowCount;

namespace {

const std::vector<std::string> dayNames{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                        "Friday", "Saturday", "Sunday"};

constexpr int headingTop = 900;
constexpr int firstRowTop = headingTop + Grid::lineHeight + Grid::smallGap;
constexpr int rowDistance = Grid::fieldHeight + 90;
constexpr int buttonTop = firstRowTop + 7 * rowDistance + 30;

// Left edges and widths of the columns, in twips.
constexpr int numberLeft = Grid::margin;
constexpr int enabledLeft = 600;
constexpr int dayLeft = 2220;
constexpr int timeLeft = 3840;
constexpr int messageLeft = 5280;
constexpr int enabledWidth = 1500;
constexpr int dayWidth = 1500;
constexpr int timeWidth = 1320;
constexpr int messageWidth = 3660;

// consequence is a sentence about the effect on the alarms.
void ReportError(const base::RuntimeError& error, const std::string& consequence,
                 const std::string& caption) {
    forms::MsgBox(
        std::to_string(error.number()) + " - " + error.description() + "\r\n\r\n" + consequence,
        {.icon = forms::BoxIcon::Exclamation}, caption);
}

}  // namespace

void frmSpecialAlarms::Design() {
    caption = "Special Alarms";
    centerOnScreen = true;
    innerWidth = 9120;
    innerHeight = buttonTop + Grid::buttonHeight + Grid::margin;
    DesignHeadings();
    for (std::size_t i = 0; i < rowCount; ++i) {
        DesignRow(i);
    }

    cmdSave.caption = "&Save";
    cmdSave.toolTip = "Save Changes and Close";
    cmdSave.isDefault = true;
    cmdSave.Place(6300, buttonTop, Grid::buttonWidth, Grid::buttonHeight);
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdCancel.caption = "&Close";
    cmdCancel.toolTip = "Discard Changes and Close";
    cmdCancel.isCancel = true;
    cmdCancel.Place(7680, buttonTop, Grid::buttonWidth, Grid::buttonHeight);
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmSpecialAlarms::DesignHeadings() {
    lblSPA.Place(Grid::margin, Grid::margin, 8760, 2 * Grid::lineHeight);
    lblEnable.caption = "Check To Enable";
    lblEnable.Place(enabledLeft, headingTop, enabledWidth, Grid::lineHeight);
    lblAlarmDay.caption = "Alarm Day";
    lblAlarmDay.Place(dayLeft, headingTop, dayWidth, Grid::lineHeight);
    lblAlarmTime.caption = "Alarm Time";
    lblAlarmTime.Place(timeLeft, headingTop, timeWidth, Grid::lineHeight);
    lblMessage.caption = "Alarm Message";
    lblMessage.Place(messageLeft, headingTop, messageWidth, Grid::lineHeight);
}

void frmSpecialAlarms::DesignRow(std::size_t row) {
    const std::string number = "#" + std::to_string(row + 1);
    const int place = firstRowTop + static_cast<int>(row) * rowDistance;

    lblNum[row].caption = number;
    lblNum[row].Place(numberLeft, place + Grid::labelInField, 360, Grid::lineHeight);
    chkEnabled[row].caption = "Enabled";
    chkEnabled[row].accessibleName = "Enabled " + number;
    chkEnabled[row].Place(enabledLeft, place, enabledWidth, Grid::fieldHeight);
    chkEnabled[row].Click = [this] { Row_Change(); };
    cboDays[row].items = dayNames;
    cboDays[row].accessibleName = "Alarm Day " + number;
    cboDays[row].Place(dayLeft, place, dayWidth, Grid::fieldHeight);
    cboDays[row].Click = [this] { Row_Change(); };
    dtpTime[row].customFormat = "hh:mm tt";
    dtpTime[row].upDown = true;
    dtpTime[row].accessibleName = "Alarm Time " + number;
    dtpTime[row].Place(timeLeft, place, timeWidth, Grid::fieldHeight);
    dtpTime[row].Change = [this] { Row_Change(); };
    txtMessage[row].accessibleName = "Alarm Message " + number;
    txtMessage[row].Place(messageLeft, place, messageWidth, Grid::fieldHeight);
    txtMessage[row].Change = [this] { Row_Change(); };

    // Tab moves row by row, although the controls are declared column by column.
    int tab = 5 + static_cast<int>(row) * 5;
    lblNum[row].tabIndex = tab++;
    chkEnabled[row].tabIndex = tab++;
    cboDays[row].tabIndex = tab++;
    dtpTime[row].tabIndex = tab++;
    txtMessage[row].tabIndex = tab;
}

void frmSpecialAlarms::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    lblSPA.caption =
        "Jotwright allows up to seven special alarms to be set.  These alarms will go off every "
        "week for the time set.  Note: the 'Enabled' button must be checked before the alarm is "
        "activated.";
    for (forms::ComboBox& days : cboDays) {
        days.listIndex = 0;
    }
    ReadSpecialAlarmsFile();
    cmdSave.enabled = false;
}

std::optional<frmSpecialAlarms::Pair> frmSpecialAlarms::FindIdenticalAlarms() const {
    for (std::size_t i = 0; i < rowCount; ++i) {
        for (std::size_t j = 0; j < rowCount - 1; ++j) {
            if (j != i && AreIdentical(i, j)) {
                return Pair{i, j};
            }
        }
    }
    return std::nullopt;
}

bool frmSpecialAlarms::AreIdentical(std::size_t i, std::size_t j) const {
    return chkEnabled[i].value == 1 && chkEnabled[j].value == 1 &&
           cboDays[i].Text() == cboDays[j].Text() && dtpTime[i].value() == dtpTime[j].value();
}

void frmSpecialAlarms::ReportIdenticalAlarms(Pair pair) {
    const auto [first, second] = std::minmax(pair.first, pair.second);
    forms::MsgBox("                    Alarm Number: " + std::to_string(first + 1) +
                      "\r\n                               and "
                      "\r\n                    Alarm Number: " +
                      std::to_string(second + 1) +
                      "\r\n          Have the same day and time set."
                      "\r\n"
                      "\r\n  Alarms can't be set for the same day and time.      ",
                  {.icon = forms::BoxIcon::Exclamation}, "Error - Identical Alarms");
}

SpecialAlarmsFile::Row frmSpecialAlarms::RowOf(std::size_t row) const {
    return {cboDays[row].Text(), dtpTime[row].value, txtMessage[row].text,
            static_cast<std::int16_t>(chkEnabled[row].value)};
}

void frmSpecialAlarms::ReadSpecialAlarmsFile() {
    std::vector<SpecialAlarmsFile::Row> rows;
    shownFile.reset();
    try {
        const auto bytes = SpecialAlarmsFile::Read();
        if (!bytes) {
            return;
        }
        SpecialAlarmsFile::Decode(*bytes, rows);
        shownFile = bytes;
    } catch (const base::RuntimeError& error) {
        ReportError(error,
                    "The special alarms that could not be read are shown as they were when they "
                    "were last loaded.",
                    "Error Loading Special Alarms");
    }
    SpecialAlarmsFile::StoreSharedRows(rows);
    for (std::size_t i = rows.size(); i < rowCount; ++i) {
        rows.push_back(SpecialAlarmsFile::SharedRow(i));
    }
    ShowRows(rows);
}

void frmSpecialAlarms::ShowRows(const std::vector<SpecialAlarmsFile::Row>& rows) {
    // If a name is not that of a weekday, the row shows the day of the previous row.
    int dayIndex = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto day = std::find(dayNames.begin(), dayNames.end(), rows[i].Day);
        if (day != dayNames.end()) {
            dayIndex = static_cast<int>(day - dayNames.begin());
        }
        cboDays[i].listIndex = dayIndex;
        dtpTime[i].value = rows[i].Time.TimeOnly();
        txtMessage[i].text = rows[i].Message;
        chkEnabled[i].value = rows[i].Enabled == 1 ? 1 : 0;
    }
}

void frmSpecialAlarms::WriteSpecialAlarmsFile() {
    std::array<SpecialAlarmsFile::Row, rowCount> rows;
    for (std::size_t i = 0; i < rowCount; ++i) {
        rows[i] = RowOf(i);
    }
    SpecialAlarmsFile::Write(rows, shownFile);
    // The main clock uses the saved rows even if they cannot be read back.
    SpecialAlarmsFile::StoreSharedRows(rows);
    ReadSpecialAlarmsFile();
}

void frmSpecialAlarms::Row_Change() { cmdSave.enabled = true; }

forms::ShortcutTarget frmSpecialAlarms::TargetOf(forms::Shortcut key) {
    return key == forms::Shortcut::ControlS ? forms::ShortcutTarget(&cmdSave)
                                            : forms::ShortcutTarget();
}

void frmSpecialAlarms::cmdSave_Click() {
    if (const auto pair = FindIdenticalAlarms()) {
        ReportIdenticalAlarms(*pair);
        return;
    }
    try {
        WriteSpecialAlarmsFile();
    } catch (const base::RuntimeError& error) {
        ReportError(error, "The special alarms have not been saved.",
                    "Error Saving Special Alarms");
        return;
    }
    Unload();
}

void frmSpecialAlarms::cmdCancel_Click() { Unload(); }
