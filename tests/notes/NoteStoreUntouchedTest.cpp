#include "tests/notes/NoteStoreProgram.h"

// Notes that nobody touches keep every byte of their files.

namespace {

using base::DateTime;
using NoteStoreUntouchedTest = testing_support::NoteStoreProgram;

TEST_F(NoteStoreUntouchedTest, UnderUtf8NoByteChangesEither) {
    locale.codePage = 65001;
    files.PutFolder(folder);
    const std::string tail = "\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    files.PutFile(folder + "\\ansi.txt", "\"ansi\",\"gr\xfc\xdf" + tail);
    files.PutFile(folder + "\\utf8.txt", "\"utf8\",\"gr\xc3\xbc\xc3\x9f" + tail);
    files.PutFile(folder + "\\mark.txt", "\xef\xbb\xbf\"mark\",\"gr\xc3\xbc\xc3\x9f" + tail);
    const auto before = Folder();
    ReadAll();
    for (const char* file : {"ansi.txt", "utf8.txt", "mark.txt"}) {
        EXPECT_EQ(EditorOf(file).txtNote.text(), "gr\xc3\xbc\xc3\x9f") << file;
    }
    TypeInto(MakeNote("New"), "\xc3\xbc");
    CloseAll();
    auto after = Folder();
    EXPECT_TRUE(after.at("New.txt").starts_with("\xef\xbb\xbf\"New\",\"\xc3\xbc"));
    after.erase("New.txt");
    EXPECT_EQ(after, before);
}

}  // namespace
