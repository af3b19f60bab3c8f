#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "alarms/SpecialAlarmsFile.h"
#include "forms/Form.h"

// The editor of the seven weekly alarms. Saving also updates the rows that the main clock tests.
class frmSpecialAlarms : public forms::Form {
  public:
    frmSpecialAlarms() : Form("frmSpecialAlarms") {}

    forms::Label lblSPA{this, "lblSPA"};
    forms::Label lblEnable{this, "lblEnable"};
    forms::Label lblAlarmDay{this, "lblAlarmDay"};
    forms::Label lblAlarmTime{this, "lblAlarmTime"};
    forms::Label lblMessage{this, "lblMessage"};
    forms::ControlArray<forms::Label, 7> lblNum{this, "lblNum"};
    forms::ControlArray<forms::CheckBox, 7> chkEnabled{this, "chkEnabled"};
    forms::ControlArray<forms::ComboBox, 7> cboDays{this, "cboDays"};
    forms::ControlArray<forms::DateTimePicker, 7> dtpTime{this, "dtpTime"};
    forms::ControlArray<forms::TextBox, 7> txtMessage{this, "txtMessage"};
    forms::CommandButton cmdSave{this, "cmdSave"};
    forms::CommandButton cmdCancel{this, "cmdCancel"};

    void Design() override;
    void Form_Load() override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

  private:
    using Pair = std::pair<std::size_t, std::size_t>;

    void DesignHeadings();
    void DesignRow(std::size_t row);
    // Two enabled rows with the same day and time, if any.
    std::optional<Pair> FindIdenticalAlarms() const;
    bool AreIdentical(std::size_t i, std::size_t j) const;
    void ReportIdenticalAlarms(Pair pair);
    SpecialAlarmsFile::Row RowOf(std::size_t row) const;
    // Shows the rows of the file. If some rows cannot be read, reports the error, and shows the
    // values that the main clock uses for those rows.
    void ReadSpecialAlarmsFile();
    void ShowRows(const std::vector<SpecialAlarmsFile::Row>& rows);
    // Raises RuntimeErrors if the file cannot be written.
    void WriteSpecialAlarmsFile();

    std::optional<std::string> shownFile;  // the bytes of the file, if all its rows could be read

    void Row_Change();
    void cmdSave_Click();
    void cmdCancel_Click();
};
