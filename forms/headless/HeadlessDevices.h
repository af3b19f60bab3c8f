#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/headless/VirtualClock.h"

// Devices for tests. They record their calls, and fail if a test asks them to.
namespace forms::headless {

class RecordedSound : public Sound {
  public:
    explicit RecordedSound(VirtualClock& soundClock) : clock(soundClock) {}

    enum class Kind { Once, Loop, ToEnd, Stop };
    struct Entry {
        Kind kind;
        std::string path;  // empty: the call was Stop
        base::DateTime at;
        std::int64_t moment;  // monotonic milliseconds
    };

    void Play(const std::string& wavePath, Mode mode) override;
    // Advances the clock by the length of the wave.
    void PlayToEnd(const std::string& wavePath) override;
    void Stop() override;

    // Whether a sound is playing: a loop that was not stopped, or a wave that has not ended.
    bool IsPlaying() const;
    std::string PlayingPath() const;  // empty if no sound is playing
    int Count(Kind kind) const;

    std::vector<Entry> log;
    std::map<std::string, int> lengths;  // milliseconds by path
    int defaultLength = 1000;

  private:
    int LengthOf(const std::string& path) const;
    VirtualClock& clock;
};

// Like the system, refuses to add an icon twice, and to delete an icon that does not exist.
class RecordedTray : public Tray {
  public:
    struct Entry {
        bool add;  // false: the icon was deleted
        bool succeeded;
        TrayRecord record;
    };

    bool Add(const TrayRecord& record) override;
    bool Delete(const TrayRecord& record) override;

    std::optional<TrayRecord> icon;  // the icon that is shown
    std::vector<Entry> log;
    bool refuses = false;  // true: there is no notification area
};

class RecordedPrinter : public Printer {
  public:
    struct Line {
        std::string text;
        int fontSize;  // points; 0: never set
    };
    struct Document {
        std::vector<Line> lines;
        bool ended = false;
        bool abandoned = false;
        // All lines, each with a line break.
        std::string Text() const;
    };

    bool BeginDocument() override;
    void Print(const std::string& text) override;
    void SetFontSize(int points) override;
    void EndDocument() override;
    void AbandonDocument() override;

    // Counts the calls of all functions except AbandonDocument, from 1 from now on. The call with
    // this number and all later ones fail with RuntimeError 482, until Repair is called.
    void FailAt(int call);
    void Repair() { FailAt(0); }

    std::vector<Document> documents;
    bool userCancels = false;       // the user cancels each document at its beginning
    std::function<void()> onBegin;  // acts as the user while the printer asks for a file

  private:
    void Count();
    Document& Current();
    int fontSize = 0;
    int calls = 0;
    int failingCall = 0;  // 0: none
};

class RecordedShell : public Shell {
  public:
    struct Opened {
        std::string document;
        std::string workingFolder;
    };
    struct Help {
        std::string file;
        int command;
    };

    int Open(const std::string& document, const std::string& workingFolder) override;
    void ShowHelp(const std::string& helpFile, int command) override;
    void PointToThisProgram(const std::string& shortcut) override { pointed.push_back(shortcut); }

    int result = 33;
    std::optional<base::ErrorNumber> error;  // raised after a call is recorded
    std::vector<Opened> opened;
    std::vector<Help> helpShown;
    std::vector<std::string> pointed;  // shortcuts that were made to start this program
};

// Treats any file that exists as a picture, whatever its bytes.
class RecordedPictures : public Pictures {
  public:
    explicit RecordedPictures(FileSystem& pictureFiles) : files(pictureFiles) {}

    Picture Load(const std::string& path) override;

    struct Extent {
        int width;   // twips
        int height;  // twips
    };
    std::map<std::string, Extent> sizes;
    Extent defaultSize{480, 480};
    std::set<std::string> noPictures;  // files that exist but are not pictures
    std::vector<std::string> loaded;

  private:
    FileSystem& files;
};

class RecordedSystem : public System {
  public:
    std::string ApplicationFolder() override { return folder; }
    std::string StartupFolder() override { return startupFolder; }
    bool PreviousInstance() override {
        ++timesAsked;
        return previousInstance;
    }
    std::uint32_t Version() override { return version; }
    std::string InstanceId() override { return instanceId; }
    // Does not advance the clock.
    void Pause(int milliseconds) override {
        paused += milliseconds;
        if (onPause) {
            onPause();
        }
    }

    std::string folder = "C:\\Jotwright";
    // The folder does not exist on the disk in memory until the test makes it.
    std::string startupFolder =
        "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup";
    bool previousInstance = false;
    int timesAsked = 0;
    std::uint32_t version = 0x000A;  // 10.0
    std::string instanceId = "000000000000000a";
    int paused = 0;                 // milliseconds in total
    std::function<void()> onPause;  // acts as another program during the pause
};

}  // namespace forms::headless
