#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/ProductTexts.h"
#include "info/frmAbout.h"
#include "tests/support/TestProgram.h"

namespace {

class frmAboutTest : public testing_support::TestProgram {
  protected:
    void Show(const std::function<void(frmAbout&)>& script) {
        stage->ExpectModal<frmAbout>([&](frmAbout& window) {
            script(window);
            if (window.IsLoaded()) {
                user->Click(window.cmdCancel);
            }
        });
        Start([] { forms::Default<frmAbout>().ShowModal(); });
        EXPECT_EQ(forms::LoadedDefault<frmAbout>(), nullptr);
    }
};

TEST_F(frmAboutTest, ShowsTheVersion) {
    Show([](frmAbout& window) {
        EXPECT_EQ(window.lblVersion.caption(), "Version " JOTWRIGHT_PROJECT_VERSION);
    });
}

TEST_F(frmAboutTest, ShowsItsLinesInOrder) {
    Show([](frmAbout& window) {
        const std::string& text = window.txtAbout.text();
        std::size_t position = 0;
        for (const std::string& line : std::vector<std::string>{
                 StandardCode::ownershipLine,
                 "\r\n                             All Rights Reserved\r\n",
                 StandardCode::supportContact, StandardCode::webSite, "\r\nWARNING:\r\n"}) {
            const std::size_t found = text.find(line, position);
            ASSERT_NE(found, std::string::npos) << line;
            position = found + line.size() - 2;
        }
        const std::string warning =
            "\r\nThis computer program is protected by copyright laws. Unauthorized reproduction "
            "or distribution of this program, or any part of it, may result in severe civil and "
            "criminal penalties, and will will be prosecuted to the fullest extent under the law.";
        EXPECT_EQ(text.substr(position), warning);
    });
}

TEST_F(frmAboutTest, EscapeAndTheCloseBoxCloseIt) {
    Show([this](frmAbout& window) {
        user->PressEscape();
        EXPECT_FALSE(window.IsLoaded());
    });
    Show([this](frmAbout& window) {
        user->CloseBox(window);
        EXPECT_FALSE(window.IsLoaded());
    });
}

}  // namespace
