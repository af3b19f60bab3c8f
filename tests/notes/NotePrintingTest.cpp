#include "notes/NotePrinting.h"
#include "tests/support/NoteProgram.h"

namespace {

class NotePrintingTest : public testing_support::NoteProgram {
  protected:
    void Print() {
        Start([] { StandardCode::PrintNote("Dentist", "Call.\r\nAsk."); });
    }
};

TEST_F(NotePrintingTest, PrintsTitleAndTextInTwelvePoints) {
    Print();
    ASSERT_EQ(printer.documents.size(), 1U);
    const auto& document = printer.documents[0];
    EXPECT_TRUE(document.ended);
    EXPECT_FALSE(document.abandoned);
    ASSERT_EQ(document.lines.size(), 5U);
    const std::vector<std::string> texts{"", "", "Note Title: Dentist", "", "Call.\r\nAsk."};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(document.lines[i].text, texts[i]) << i;
        EXPECT_EQ(document.lines[i].fontSize, i < 2 ? 0 : 12) << i;
    }
}

TEST_F(NotePrintingTest, AFailureAtAnyStepAbandonsTheDocument) {
    for (int call = 1; call <= 8; ++call) {
        printer.documents.clear();
        printer.FailAt(call);
        ExpectPrintError();
        Print();
        for (const auto& document : printer.documents) {
            EXPECT_FALSE(document.ended) << call;
            EXPECT_TRUE(document.abandoned) << call;
        }
    }
    printer.Repair();
    printer.documents.clear();
    Print();
    ASSERT_EQ(printer.documents.size(), 1U);
    EXPECT_TRUE(printer.documents[0].ended);
}

TEST_F(NotePrintingTest, ADocumentThatTheUserCancelsEndsQuietly) {
    printer.userCancels = true;
    Print();
    EXPECT_TRUE(printer.documents.empty());
    printer.userCancels = false;
    Print();
    ASSERT_EQ(printer.documents.size(), 1U);
    EXPECT_TRUE(printer.documents[0].ended);
}

// A printer that writes files asks for the name of the file.
TEST_F(NotePrintingTest, WhileThePrinterAsksWindowsAppearAndTheNoteMayBeClosed) {
    frmNote& note = MakeNote("Dentist", "Call.");
    frmNote& other = MakeNote("Shopping", "Milk.");
    Start([&] { note.Hide(); });
    bool wasShown = false;
    printer.onBegin = [&] {
        Start([&] { note.Show(); });
        wasShown = note.IsShownOnStage();
        user->CloseBox(other);
    };
    user->Choose(other.mnuPrint);
    EXPECT_TRUE(wasShown);
    ASSERT_EQ(printer.documents.size(), 1U);
    EXPECT_EQ(printer.documents[0].Text(), "\r\n\r\nNote Title: Shopping\r\n\r\nMilk.\r\n");
    EXPECT_TRUE(printer.documents[0].ended);
}

}  // namespace
