#pragma once

#include <string>

#include "alarms/SpecialAlarmsFile.h"
#include "app/Main.h"
#include "app/StandardCode.h"
#include "app/frmMain.h"
#include "info/frmSplash.h"
#include "info/frmTip.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmNote.h"
#include "tests/support/ProductProgram.h"

namespace testing_support {

// The whole program as its user sees it, from the start-up routine onwards.
class WholeProgram : public ProductProgram {
  protected:
    // Starts without the tips and waits until the splash screen has gone.
    void StartQuietly() {
        settings.values[{"Startup", "View Tips"}] = "1";
        Start(StandardCode::Main);
        Advance(1000);
    }

    // The default instance of a window that the program has shown.
    template <class T>
    T& Shown() {
        Start([] { forms::Default<T>().Show(); });
        return forms::Default<T>();
    }

    frmMain& Main() { return forms::Default<frmMain>(); }

    // Opens the menu of the icon in the notification area and chooses the entry.
    void ChooseFromTrayMenu(const std::string& entry) {
        stage->ExpectPopup("mnuPop", entry);
        RightClickTrayIcon();
    }

    // Types a title and clicks Make Note. Returns the editor that opened.
    frmNote& MakeNote(const std::string& title) {
        if (!Main().IsVisible()) {
            ClickTrayIcon();
        }
        user->Type(Main().txtNoteTitle, title);
        user->Click(Main().cmdMakeNote);
        return Editor(title);
    }

    // The open editor with this title. If there is none, fails the test and returns the hidden one.
    frmNote& Editor(const std::string& title) {
        if (auto* note = FindWindow<frmNote>(title)) {
            return *note;
        }
        ADD_FAILURE() << "no editor is open for " << title;
        return forms::Default<frmNote>();
    }

    template <class T>
    T* FindWindow(const std::string& title) {
        for (const auto& form : runtime->LoadedForms()) {
            auto* window = dynamic_cast<T*>(form.get());
            if (window != nullptr && window->IsVisible() && window->caption() == title) {
                return window;
            }
        }
        return nullptr;
    }

    template <class T>
    int CountVisible() {
        int count = 0;
        for (const auto& form : runtime->LoadedForms()) {
            count += dynamic_cast<T*>(form.get()) != nullptr && form->IsVisible() ? 1 : 0;
        }
        return count;
    }

    // Lets time pass in steps of a tenth of a second, until the clock shows this time of the day.
    void AdvanceTo(int hour, int minute, int second) {
        const auto target =
            base::Combine(forms::Today(), base::DateTime::FromTime(hour, minute, second));
        while (forms::Now() < target) {
            Advance(100);
        }
    }

    // The program starts on a Friday.
    static void SetFridaysAlarm(std::size_t row, base::DateTime time, const std::string& message) {
        SpecialAlarmsFile::StoreSharedRow(row, {"Friday", time, message, 1});
    }
};

}  // namespace testing_support
