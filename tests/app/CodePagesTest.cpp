#include <map>
#include <tuple>

#include "alarms/SpecialAlarmsFile.h"
#include "app/frmMain.h"
#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"

// The program starts and exits without an edit, on systems with different code pages and with note
// files in all of them. No byte of a file may change.

using namespace forms;

namespace {

const std::string notesFolder = testing_support::applicationFolder + "\\Notes";
const std::string tail = "\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";

// The parameters are the code page of the system and the code page of its language.
class CodePagesTest : public testing_support::WholeProgram,
                      public testing::WithParamInterface<std::tuple<int, int>> {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        std::tie(locale.codePage, locale.languageCodePage) = GetParam();
        PutNotes();
    }

    void Put(const std::string& file, const std::string& bytes) {
        files.PutFile(notesFolder + '\\' + file, bytes);
    }

    void PutNotes() {
        Put("ascii.txt", "\"ascii\",\"5\\\" pipe, \"quoted\"" + tail);
        // Western, Japanese and Chinese texts. In each of them, a character beyond ASCII is
        // directly before the closing quote.
        Put("western.txt", "\"Stra\xdf\x65 \xe4\",\"gr\xfc\xdf dich, caf\xe9" + tail);
        Put("japanese.txt", "\"\x93\xfa\x96\x7b\",\"\x95\x5c \x83\x5c\xb1, \x94\x5c" + tail);
        Put("chinese.txt", "\"\xc4\xe3\xba\xc3\",\"\xb1\xed\x81\x5c\xd5\x5c" + tail);
        Put("utf8.txt", "\"Stra\xc3\x9f\x65\",\"gr\xc3\xbc\xc3\x9f \xe6\x97\xa5" + tail);
        Put("mark.txt", "\xef\xbb\xbf\"mark\",\"\xe6\x97\xa5 \xf0\x9f\x98\x80" + tail);
        Put("marked ascii.txt", "\xef\xbb\xbf\"marked ascii\",\"plain" + tail);
        std::string anyBytes;
        for (int byte = 255; byte >= 0; --byte) {
            anyBytes += static_cast<char>(byte);
        }
        Put("any bytes.txt", "\"any bytes\",\"" + anyBytes + tail);
        Put("half a pair.txt", "\"half a pair\",\"\x81\x82\x83" + tail);
        Put("no line break.txt",
            "\"no line break\",\"lone\nbreak\rs" + tail.substr(0, tail.size() - 2));
        // Two notes with the same title, and one without a title.
        Put("one.txt", "\"Same \xe4\",\"one" + tail);
        Put("two.txt", "\"Same \xe4\",\"two" + tail);
        Put("x.txt", "\"\",\"no title" + tail);
    }

    // The bytes of all notes.
    std::map<std::string, std::string> Notes() const {
        std::map<std::string, std::string> notes;
        for (const std::string& name : files.Names(notesFolder)) {
            notes[name] = files.Peek(notesFolder + '\\' + name).value_or("");
        }
        return notes;
    }

    void ExpectOnlyReads() {
        for (const std::string& entry : files.Log()) {
            EXPECT_TRUE(entry.starts_with("read ")) << entry;
        }
    }

    frmNote& EditorOf(const std::string& file) {
        const EditedNote* note = StandardCode::Notes().FindOpen(file);
        EXPECT_NE(note, nullptr) << file;
        return note == nullptr ? Default<frmNote>()
                               : static_cast<frmNote&>(note->Editor().Window());
    }
};

TEST_P(CodePagesTest, StartAndExitWithNothingTouchedChangeNoByte) {
    const auto before = Notes();
    for (const bool throughPanel : {false, true}) {
        SCOPED_TRACE(throughPanel ? "the panel was open" : "the panel was never open");
        files.ClearLog();
        StartQuietly();
        EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), before.size());
        EXPECT_EQ(StandardCode::Shared().NoteCount, static_cast<int>(before.size()));
        if (throughPanel) {
            user->Click(Main().cmdViewNotes);
            user->Click(Default<frmViewNotes>().cmdOpenAll);
            user->Click(Default<frmViewNotes>().cmdOK);
        }
        Advance(10'000);
        EXPECT_EQ(Notes(), before);
        user->Click(Main().cmdExit);
        EXPECT_TRUE(runtime->HasEnded());
        EXPECT_EQ(Notes(), before);
        ExpectOnlyReads();
        Restart();
    }
    EXPECT_TRUE(files.RecycleBin().empty());
}

TEST_P(CodePagesTest, ClosingEachEditorChangesNoByteEither) {
    const auto before = Notes();
    StartQuietly();
    files.ClearLog();
    for (const auto& [file, bytes] : before) {
        frmNote& note = EditorOf(file);
        user->Restore(note);
        user->CloseBox(note);
    }
    EXPECT_EQ(Notes(), before);
    ExpectOnlyReads();
}

TEST_P(CodePagesTest, TypedTextComesBackAndOtherFilesDoNotChange) {
    auto before = Notes();
    StartQuietly();
    const std::string text = "\xe6\x97\xa5\xe6\x9c\xac gr\xc3\xbc\xc3\x9f \xe4\xbd\xa0";
    frmNote& note = EditorOf("japanese.txt");
    user->Restore(note);
    user->Type(note.txtNote, text);
    user->Click(Main().cmdExit);
    ASSERT_TRUE(runtime->HasEnded());
    auto after = Notes();
    EXPECT_NE(after.at("japanese.txt"), before.at("japanese.txt"));
    before.erase("japanese.txt");
    after.erase("japanese.txt");
    EXPECT_EQ(after, before);
    Restart();
    StartQuietly();
    EXPECT_EQ(EditorOf("japanese.txt").txtNote.text(), text);
}

INSTANTIATE_TEST_SUITE_P(Systems, CodePagesTest,
                         testing::Values(std::tuple(1252, 1252), std::tuple(932, 932),
                                         std::tuple(936, 936), std::tuple(65001, 1252),
                                         std::tuple(65001, 932), std::tuple(65001, 936)),
                         [](const auto& system) {
                             return std::to_string(std::get<0>(system.param)) + "_" +
                                    std::to_string(std::get<1>(system.param));
                         });

}  // namespace
