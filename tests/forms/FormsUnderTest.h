#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Form.h"

namespace forms_under_test {

// The events so far, in order.
inline std::vector<std::string>& Log() {
    static std::vector<std::string> log;
    return log;
}

inline std::vector<std::string> TakeLog() {
    std::vector<std::string> taken;
    taken.swap(Log());
    return taken;
}

// Logs its own events. A test can add an action to each event.
class LoggingForm : public forms::Form {
  public:
    explicit LoggingForm(const char* className) : Form(className) {}

    std::function<void()> onInitialize;
    std::function<void()> onLoad;
    std::function<void()> onActivate;
    std::function<void(bool&, forms::UnloadMode)> onQueryUnload;
    std::function<void(bool&)> onUnload;

    void Design() override { Note("Design"); }
    void Form_Initialize() override {
        Note("Initialize");
        Run(onInitialize);
    }
    void Form_Load() override {
        Note("Load");
        Run(onLoad);
    }
    void Form_Activate() override {
        Note("Activate");
        Run(onActivate);
    }
    void Form_Resize() override { ++timesResized; }
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override {
        Note("QueryUnload");
        lastMode = mode;
        if (onQueryUnload) {
            onQueryUnload(cancel, mode);
        }
    }
    void Form_Unload(bool& cancel) override {
        Note("Unload");
        if (onUnload) {
            onUnload(cancel);
        }
    }

    int timesResized = 0;
    forms::UnloadMode lastMode = forms::UnloadMode::Code;

  private:
    void Note(const char* what) { Log().push_back(std::string(name) + "." + what); }
    static void Run(const std::function<void()>& handler) {
        if (handler) {
            handler();
        }
    }
};

// Three classes, so that each has a default instance.
class frmFirst : public LoggingForm {
  public:
    frmFirst() : LoggingForm("frmFirst") {}
    forms::CommandButton cmdGo{this, "cmdGo"};
    forms::TextBox txtName{this, "txtName"};
    forms::Timer tmrOne{this, "tmrOne"};
    forms::Timer tmrTwo{this, "tmrTwo"};

    void Design() override {
        LoggingForm::Design();
        caption = "First";
        cmdGo.caption = "Go";
        cmdGo.Place(120, 120, 1215, 375);
        txtName.Place(120, 600, 2400, 285);
    }
};

class frmSecond : public LoggingForm {
  public:
    frmSecond() : LoggingForm("frmSecond") {}
    forms::CommandButton cmdGo{this, "cmdGo"};
    forms::Timer tmrOne{this, "tmrOne"};

    void Design() override {
        LoggingForm::Design();
        caption = "Second";
        cmdGo.caption = "Go";
        cmdGo.Place(120, 120, 1215, 375);
    }
};

class frmThird : public LoggingForm {
  public:
    frmThird() : LoggingForm("frmThird") {}
    forms::CommandButton cmdGo{this, "cmdGo"};

    void Design() override {
        LoggingForm::Design();
        caption = "Third";
        cmdGo.caption = "Go";
        cmdGo.Place(120, 120, 1215, 375);
    }
};

}  // namespace forms_under_test
