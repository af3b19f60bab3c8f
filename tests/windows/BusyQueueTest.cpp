#include <windows.h>

#include <algorithm>
#include <functional>

#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

// The maximum number of keys in the program's queue. The program needs some seconds for them.
constexpr LRESULT mostWaiting = 2000;
// The test fails after this many keys. The program needs many minutes for them.
constexpr LRESULT mostKeys = 100000;

}  // namespace

// Sends keys faster than the program handles them, so that its queue is never empty.
class BusyQueueTest : public DriverTest {
  protected:
    // Sends keys until the condition is true. Returns false if it is still false after mostKeys
    // keys.
    static bool TypeUntil(const Window& box, const std::function<bool()>& condition) {
        LRESULT sent = box.Send(WM_GETTEXTLENGTH);
        while (sent < mostKeys) {
            while (sent - box.Send(WM_GETTEXTLENGTH) < mostWaiting) {
                for (int i = 0; i < 100; ++i, ++sent) {
                    box.Post(WM_CHAR, sent % 20 == 19 ? L' ' : L'a', 1);
                }
            }
            if (condition()) {
                return true;
            }
        }
        return false;
    }

    bool HasRecoveryCopy() const {
        const auto names = FileNames(folder + "\\Notes");
        return std::any_of(names.begin(), names.end(),
                           [](const std::string& name) { return name.ends_with(".recovery"); });
    }
};

TEST_F(BusyQueueTest, TheRecoveryCopyIsStillWritten) {
    const Window main = StartProgram();
    const Window box = MakeNote(main, "Typing").Only("Edit");
    ASSERT_FALSE(HasRecoveryCopy());
    EXPECT_TRUE(TypeUntil(box, [this] { return HasRecoveryCopy(); }));
}

TEST_F(BusyQueueTest, AlarmsStillRing) {
    Clock::Set("2031-06-02 09:00:00");
    WriteNote("Ring", "\"Ring\",\"text\",#2031-06-02#,#12:00:00#,1,12,\"1\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window box = MakeNote(main, "Typing").Only("Edit");
    const Window ring = program.WaitFor("Ring");
    ASSERT_TRUE(ring.IsMinimized());
    Clock::Set("2031-06-02 11:59:57");
    EXPECT_TRUE(TypeUntil(box, [&] { return !ring.IsMinimized(); }));
}

}  // namespace driver
