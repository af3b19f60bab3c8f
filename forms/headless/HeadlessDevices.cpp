#include "forms/headless/HeadlessDevices.h"

#include <algorithm>

#include "base/Text.h"

namespace forms::headless {

void RecordedSound::Play(const std::string& wavePath, Mode mode) {
    const Kind kind = mode == Mode::Loop ? Kind::Loop : Kind::Once;
    log.push_back({kind, wavePath, clock.Now(), clock.MonotonicMilliseconds()});
}

void RecordedSound::PlayToEnd(const std::string& wavePath) {
    log.push_back({Kind::ToEnd, wavePath, clock.Now(), clock.MonotonicMilliseconds()});
    clock.Pass(LengthOf(wavePath));
}

void RecordedSound::Stop() {
    log.push_back({Kind::Stop, "", clock.Now(), clock.MonotonicMilliseconds()});
}

bool RecordedSound::IsPlaying() const {
    if (log.empty() || log.back().kind == Kind::Stop) {
        return false;
    }
    const Entry& last = log.back();
    return last.kind == Kind::Loop ||
           clock.MonotonicMilliseconds() < last.moment + LengthOf(last.path);
}

std::string RecordedSound::PlayingPath() const { return IsPlaying() ? log.back().path : ""; }

int RecordedSound::Count(Kind kind) const {
    return static_cast<int>(std::count_if(
        log.begin(), log.end(), [kind](const Entry& entry) { return entry.kind == kind; }));
}

int RecordedSound::LengthOf(const std::string& path) const {
    const auto found = lengths.find(path);
    return found == lengths.end() ? defaultLength : found->second;
}

bool RecordedTray::Add(const TrayRecord& record) {
    const bool succeeds = !refuses && !icon;
    if (succeeds) {
        icon = record;
    }
    log.push_back({true, succeeds, record});
    return succeeds;
}

bool RecordedTray::Delete(const TrayRecord& record) {
    const bool succeeds = icon && icon->owner == record.owner && icon->iconId == record.iconId;
    if (succeeds) {
        icon.reset();
    }
    log.push_back({false, succeeds, record});
    return succeeds;
}

std::string RecordedPrinter::Document::Text() const {
    std::string text;
    for (const Line& line : lines) {
        text += line.text + base::lineBreak;
    }
    return text;
}

bool RecordedPrinter::BeginDocument() {
    Count();
    if (onBegin) {
        onBegin();
    }
    if (!userCancels) {
        documents.emplace_back();
        fontSize = 0;
    }
    return !userCancels;
}

void RecordedPrinter::Print(const std::string& text) {
    Count();
    Current().lines.push_back({text, fontSize});
}

void RecordedPrinter::SetFontSize(int points) {
    Count();
    fontSize = points;
}

void RecordedPrinter::EndDocument() {
    Count();
    Current().ended = true;
}

void RecordedPrinter::AbandonDocument() {
    if (!documents.empty() && !documents.back().ended) {
        documents.back().abandoned = true;
    }
}

void RecordedPrinter::FailAt(int call) {
    failingCall = call;
    calls = 0;
}

void RecordedPrinter::Count() {
    ++calls;
    if (failingCall != 0 && calls >= failingCall) {
        throw base::RuntimeError(base::ErrorNumber::PrinterError);
    }
}

RecordedPrinter::Document& RecordedPrinter::Current() {
    if (documents.empty() || documents.back().ended || documents.back().abandoned) {
        throw base::RuntimeError(base::ErrorNumber::PrinterError);
    }
    return documents.back();
}

int RecordedShell::Open(const std::string& document, const std::string& workingFolder) {
    opened.push_back({document, workingFolder});
    if (error) {
        throw base::RuntimeError(*error);
    }
    return result;
}

void RecordedShell::ShowHelp(const std::string& helpFile, int command) {
    helpShown.push_back({helpFile, command});
    if (error) {
        throw base::RuntimeError(*error);
    }
}

Picture RecordedPictures::Load(const std::string& path) {
    if (!files.FileExists(path)) {
        throw base::RuntimeError(base::ErrorNumber::FileNotFound);
    }
    if (noPictures.count(path) != 0) {
        throw base::RuntimeError(base::ErrorNumber::InvalidPicture);
    }
    loaded.push_back(path);
    const auto found = sizes.find(path);
    const Extent extent = found == sizes.end() ? defaultSize : found->second;
    return Picture{path, extent.width, extent.height};
}

}  // namespace forms::headless
