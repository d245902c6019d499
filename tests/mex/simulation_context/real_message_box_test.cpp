// The box of PopUpMessage as the user sees it.
#include "tests/support/message_boxes.h"
#include "tests/support/package_test.h"

#include <atomic>
#include <chrono>
#include <thread>

using namespace support;

namespace {

class RealMessageBox : public PackageTest {
protected:
    HRESULT popUp(AnyText text)
    {
        ComPointer<ICapeDiagnostic> diagnostic;
        EXPECT_EQ(diagnostic.queryFrom(package.context.get()), S_OK);
        return diagnostic->PopUpMessage(OwnedBstr(text));
    }
};

} // namespace

TEST_F(RealMessageBox, HasTheMessageAndItsTitle)
{
    const MessageBoxes boxes;
    EXPECT_EQ(popUp("The model \xC3\xA9 is 100% new"), S_OK);
    EXPECT_EQ(popUp("Two\nlines"), S_OK);
    EXPECT_EQ(boxes.shown(), (std::vector<ShownMessage>{{Wide("The model \xC3\xA9 is 100% new"), Wide("Verdanth:")},
                                                        {Wide("Two\nlines"), Wide("Verdanth:")}}));
}

TEST_F(RealMessageBox, HoldsThePackageUntilItIsClosed)
{
    std::atomic<bool> pressed = false;
    std::thread user([&] {
        HWND box = nullptr;
        while (!(box = FindWindowW(L"#32770", L"Verdanth:")))
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
        pressed = true;
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(popUp("Wait"), S_OK);
    EXPECT_TRUE(pressed);
    user.join();
}

TEST_F(RealMessageBox, DoesNotComeWhenWarningsAreOff)
{
    showWarnings(false);
    const MessageBoxes boxes;
    EXPECT_EQ(popUp("Unseen"), S_OK);
    EXPECT_EQ(boxes.shown(), std::vector<ShownMessage>());
}
