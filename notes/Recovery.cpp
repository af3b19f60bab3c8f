#include "notes/Recovery.h"

#include <cstdint>
#include <optional>
#include <set>

#include "app/RecordText.h"
#include "app/SafeFile.h"
#include "forms/Devices.h"
#include "forms/RuntimeError.h"
#include "forms/Text.h"
#include "notes/NotesArray.h"

namespace {

constexpr const char* extension = ".recovery";
constexpr const char* header = "Jotwright recovery copy\r\n";
// Bytes of a title that the name of a copy shows: together with the rest, any file system takes it.
constexpr std::size_t shownOfTitle = 100;

forms::FileSystem& Files() { return *forms::Machine().files; }

// The copies of the editors of this run, so that two notes of one title do not share one.
std::set<std::string>& PathsInUse() {
    static std::set<std::string> paths;
    return paths;
}

std::string KeyOf(const std::string& path) { return forms::Machine().locale->ToUpper(path); }

// A title may hold what no file name can: such a note cannot be saved, all the more is it kept.
std::string StemOf(const std::string& title) {
    const std::string refused = "<>:\"/\\|?*";
    std::string stem = "~";
    std::size_t position = 0;
    while (position < title.size() && stem.size() < shownOfTitle) {
        const std::size_t start = position;
        const char32_t character = forms::NextCharacter(title, position);
        if (character < U' ' ||
            (character < 0x80 && refused.find(static_cast<char>(character)) != std::string::npos)) {
            stem += '_';
        } else {
            stem += title.substr(start, position - start);
        }
    }
    return stem;
}

std::string FreePathFor(const std::string& title) {
    const std::string stem = StandardCode::NotesFolder() + '\\' + StemOf(title);
    std::string path = stem + extension;
    for (int i = 2; PathsInUse().count(KeyOf(path)) != 0 || Files().FileExists(path); ++i) {
        path = stem + '~' + std::to_string(i) + extension;
    }
    return path;
}

std::string Encode(const std::string& title, const std::string& text) {
    return header + std::to_string(title.size()) + "\r\n" + title + "\r\n" + text;
}

std::optional<RecoveredText> Decode(const std::string& bytes) {
    std::size_t position = std::string(header).size();
    if (bytes.compare(0, position, header) != 0) {
        return std::nullopt;
    }
    std::size_t length = 0;
    while (position < bytes.size() && bytes[position] >= '0' && bytes[position] <= '9') {
        length = length * 10 + static_cast<std::size_t>(bytes[position] - '0');
        if (length > bytes.size()) {
            return std::nullopt;
        }
        ++position;
    }
    const std::size_t titleStart = position + 2;
    const std::size_t titleEnd = titleStart + length;
    if (titleEnd + 2 > bytes.size() || bytes.compare(position, 2, "\r\n") != 0 ||
        bytes.compare(titleEnd, 2, "\r\n") != 0) {
        return std::nullopt;
    }
    RecoveredText recovered;
    recovered.title =
        RecordText::WithoutZeros(forms::ToValidUtf8(bytes.substr(titleStart, length)));
    recovered.text = RecordText::WithoutZeros(forms::ToValidUtf8(bytes.substr(titleEnd + 2)));
    return recovered;
}

}  // namespace

RecoveryCopy::~RecoveryCopy() { PathsInUse().erase(key); }

void RecoveryCopy::Keep(const std::string& title, const std::string& text) {
    if (keptTitle == title && keptText == text && IsWritten()) {
        return;
    }
    try {
        StandardCode::EnsureNotesFolder();
        if (path.empty()) {
            Use(FreePathFor(title));
        }
        SafeFile::ReplaceFile(path, Encode(title, text));
        keptTitle = title;
        keptText = text;
        written = true;
    } catch (const forms::RuntimeError&) {
        written = false;
    }
}

bool RecoveryCopy::IsWritten() const { return written && Files().FileExists(path); }

void RecoveryCopy::Remove() {
    if (path.empty()) {
        return;
    }
    try {
        if (Files().FileExists(path)) {
            Files().Delete(path);
        }
        PathsInUse().erase(key);
        path.clear();
        key.clear();
        keptText.clear();
        written = false;
    } catch (const forms::RuntimeError&) {
        // The path stays in use, so that the next call tries again.
        written = false;
    }
}

void RecoveryCopy::Adopt(const RecoveredText& recovered) {
    Use(recovered.path);
    keptTitle = recovered.title;
    keptText = recovered.text;
    written = true;
}

void RecoveryCopy::Use(const std::string& newPath) {
    path = newPath;
    key = KeyOf(newPath);
    PathsInUse().insert(key);
}

std::vector<RecoveredText> Recovery::Find() {
    std::vector<RecoveredText> found;
    for (const forms::FileEntry& file : Files().List(StandardCode::NotesFolder(), extension)) {
        const std::string path = StandardCode::NotesFolder() + '\\' + file.name;
        if (PathsInUse().count(KeyOf(path)) != 0) {
            continue;
        }
        try {
            if (auto recovered = Decode(Files().Read(path))) {
                recovered->path = path;
                found.push_back(*recovered);
            }
        } catch (const forms::RuntimeError&) {
            // The others can still be saved.
        }
    }
    return found;
}
