#include "notes/RecoveryCopy.h"

#include <charconv>
#include <string_view>

#include "app/Patience.h"
#include "app/RecordText.h"
#include "app/SafeFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"

namespace {

constexpr const char* extension = ".recovery";
constexpr std::string_view header = "Jotwright recovery copy 2\r\n";
constexpr std::string_view earlierHeader = "Jotwright recovery copy\r\n";
constexpr std::string_view lineEnd = "\r\n";
// The name of a copy contains about this many bytes of the title. With its other parts, it does not
// exceed the limit of any file system.
constexpr std::size_t shownOfTitle = 100;

forms::FileSystem& Files() { return *forms::Machine().files; }

std::string KeyOf(const std::string& path) { return forms::Machine().locale->ToUpper(path); }

// The beginning of a copy's name. Replaces characters of the title that are not allowed in file
// names. A note with such a character in its title cannot be saved, so its recovery copy matters
// even more.
std::string StemOf(const std::string& title) {
    const std::string refused = "<>:\"/\\|?*";
    std::string stem = "~";
    std::size_t position = 0;
    while (position < title.size() && stem.size() < shownOfTitle) {
        const std::size_t start = position;
        const char32_t character = base::NextCharacter(title, position);
        if (character < U' ' ||
            (character < 0x80 && refused.find(static_cast<char>(character)) != std::string::npos)) {
            stem += '_';
        } else {
            stem += title.substr(start, position - start);
        }
    }
    return stem;
}

// The name contains the instance id, so that two programs on one folder never choose the same name.
std::string FreePathFor(const std::string& title) {
    const std::string stem = StandardCode::NotesFolder() + '\\' + StemOf(title) + '-' +
                             forms::Machine().system->InstanceId();
    const auto& inUse = StandardCode::Shared().RecoveryPaths;
    std::string path = stem + extension;
    for (int i = 2; inUse.contains(KeyOf(path)) || Files().FileExists(path); ++i) {
        path = stem + '~' + std::to_string(i) + extension;
    }
    return path;
}

std::string Hexadecimal(std::uint64_t number) {
    char digits[16];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    return {std::begin(digits), end};
}

std::optional<std::uint64_t> Number(std::string_view digits, int base) {
    std::uint64_t number = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number, base);
    return error == std::errc() && end == last ? std::optional(number) : std::nullopt;
}

// For example "7\r\nDentist\r\n".
std::string Counted(const std::string& text) {
    return std::to_string(text.size()) + std::string(lineEnd) + text + std::string(lineEnd);
}

// Reads lines and counted texts from the bytes of a copy.
class CopyReader {
  public:
    explicit CopyReader(std::string_view allBytes) : bytes(allBytes) {}

    std::optional<std::string_view> Line() {
        const std::size_t end = bytes.find(lineEnd);
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end + lineEnd.size());
        return line;
    }

    std::optional<std::string> Text() {
        const auto line = Line();
        const auto length = line ? Number(*line, 10) : std::nullopt;
        if (!length || *length > bytes.size() ||
            !bytes.substr(static_cast<std::size_t>(*length)).starts_with(lineEnd)) {
            return std::nullopt;
        }
        const std::string_view text = bytes.substr(0, static_cast<std::size_t>(*length));
        bytes.remove_prefix(text.size() + lineEnd.size());
        return RecordText::WithoutZeros(base::ToValidUtf8(text));
    }

    std::string_view Rest() const { return bytes; }

  private:
    std::string_view bytes;
};

std::string Encode(const RecoveredNote& note) {
    StandardCode::NoteRecord untitled = note.record;
    untitled.Title.clear();
    const std::string contents =
        Counted(note.file) + (note.base ? Hexadecimal(*note.base) : std::string("none")) +
        std::string(lineEnd) + Counted(note.record.Title) + NoteFile::Compose(untitled);
    return std::string(header) + forms::Machine().system->InstanceId() + std::string(lineEnd) +
           Hexadecimal(NoteFile::Fingerprint(contents)) + std::string(lineEnd) + contents;
}

// A copy that was read, and the instance id of the program that wrote it.
struct Decoded {
    RecoveredNote note;
    std::string instanceId;
};

// A copy that an earlier version wrote has only title and text, and no information about the note's
// file.
std::optional<Decoded> DecodeEarlier(std::string_view contents) {
    CopyReader reader(contents);
    const auto title = reader.Text();
    if (!title) {
        return std::nullopt;
    }
    Decoded decoded;
    decoded.note.isTextOnly = true;
    decoded.note.record.Title = *title;
    decoded.note.record.Text =
        RecordText::WithoutZeros(base::ToValidUtf8(std::string(reader.Rest())));
    return decoded;
}

std::optional<Decoded> Decode(const std::string& bytes) {
    if (bytes.starts_with(earlierHeader)) {
        return DecodeEarlier(std::string_view(bytes).substr(earlierHeader.size()));
    }
    if (!bytes.starts_with(header)) {
        return std::nullopt;
    }
    CopyReader reader(std::string_view(bytes).substr(header.size()));
    const auto instanceId = reader.Line();
    const auto checksum = reader.Line();
    const std::string contents(reader.Rest());
    const auto file = reader.Text();
    const auto base = reader.Line();
    const auto title = reader.Text();
    if (!instanceId || !checksum || !file || !base || !title) {
        return std::nullopt;
    }
    Decoded decoded;
    decoded.instanceId = *instanceId;
    decoded.note.file = *file;
    decoded.note.base = Number(*base, 16);
    decoded.note.isWhole = Number(*checksum, 16) == NoteFile::Fingerprint(contents);
    try {
        NoteFile::Parse(RecordText::WithoutZeros(base::ToValidUtf8(std::string(reader.Rest()))),
                        decoded.note.record);
    } catch (const base::RuntimeError&) {
        decoded.note.isWhole = false;
    }
    decoded.note.record.Title = *title;
    return decoded;
}

}  // namespace

RecoveryCopy::~RecoveryCopy() { StandardCode::Shared().RecoveryPaths.erase(key); }

void RecoveryCopy::Keep(const RecoveredNote& note) {
    try {
        const std::string newBytes = Encode(note);
        if (newBytes == bytes && IsWritten()) {
            return;
        }
        StandardCode::EnsureNotesFolder();
        if (path.empty()) {
            Use(FreePathFor(note.record.Title));
        }
        SafeFile::ReplaceFile(path, newBytes,
                              {.durability = forms::Durability::Cached, .isPatient = false});
        bytes = newBytes;
        written = true;
    } catch (const base::RuntimeError&) {
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
        Forget();
    } catch (const base::RuntimeError&) {
        // Keep the path, so that the next call tries again.
        written = false;
    }
}

void RecoveryCopy::Recycle() {
    if (path.empty()) {
        return;
    }
    try {
        Files().Recycle(path);
    } catch (const base::RuntimeError&) {
        // The copy stays until the next start.
    }
    Forget();
}

void RecoveryCopy::Forget() {
    StandardCode::Shared().RecoveryPaths.erase(key);
    path.clear();
    key.clear();
    bytes.clear();
    written = false;
}

void RecoveryCopy::Adopt(const RecoveredNote& recovered) {
    Use(FreePathFor(recovered.record.Title));
    try {
        Files().Replace(recovered.path, path, forms::Durability::Cached);
    } catch (const base::RuntimeError&) {
        // Another program holds the copy or has taken it over.
        StandardCode::Shared().RecoveryPaths.erase(key);
        Use(recovered.path);
    }
    written = true;
}

void RecoveryCopy::Use(const std::string& newPath) {
    path = newPath;
    key = KeyOf(newPath);
    StandardCode::Shared().RecoveryPaths.insert(key);
}

std::vector<RecoveredNote> RecoveryCopy::Find() {
    std::vector<RecoveredNote> found;
    const std::string folder = StandardCode::NotesFolder();
    for (const forms::FileEntry& file :
         Patience::Try([&] { return Files().List(folder, extension); })) {
        const std::string path = folder + '\\' + file.name;
        if (StandardCode::Shared().RecoveryPaths.contains(KeyOf(path))) {
            continue;
        }
        try {
            auto decoded = Decode(Patience::Try([&] { return Files().Read(path); }));
            if (decoded && !SafeFile::IsInUseBy(folder, decoded->instanceId)) {
                decoded->note.path = path;
                found.push_back(std::move(decoded->note));
            }
        } catch (const base::RuntimeError&) {
            // Skip a copy that cannot be read.
        }
    }
    return found;
}
