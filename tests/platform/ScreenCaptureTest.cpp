#include "platform/ScreenCapture.h"
#include "platform/WaitUntil.h"
#include "platform/XServer.h"
#include "platform/XTestWindow.h"
#include "platform/linux/LinuxServices.h"

#include <gtest/gtest.h>

TEST(LinuxScreenCapture, showsWindowsAndPlaces)
{
    // Without a window manager the window lies where it says.
    XServer server(XServer::Kind::oneOutput, {});
    XTestWindow window(server.display(), {.geometry = {1000, 100, 400, 300}, .colour = 0x2040ff});
    const auto capture = makeScreenCapture(server.display());
    const QColor blue(0x20, 0x40, 0xff), black(0, 0, 0);
    QImage picture;
    ASSERT_TRUE(waitUntil([&] {
        picture = capture->window(window.id());
        return !picture.isNull();
    }));
    EXPECT_EQ(picture.size(), QSize(280, 300)) << "what reaches out of the screen is not shown";
    EXPECT_EQ(picture.pixelColor(279, 299), blue);

    picture = capture->screen({900, 50, 200, 100});
    EXPECT_EQ(picture.size(), QSize(200, 100));
    EXPECT_EQ(picture.pixelColor(150, 80), blue);
    EXPECT_EQ(picture.pixelColor(50, 20), black);
    EXPECT_EQ(capture->screen({-50, -50, 10000, 10000}).size(), QSize(1280, 720));
    EXPECT_TRUE(capture->screen({5000, 0, 10, 10}).isNull());
    EXPECT_TRUE(capture->screen({}).isNull());

    const xcb_window_t gone = window.id();
    window.close();
    EXPECT_TRUE(waitUntil([&] { return capture->window(gone).isNull(); }));
    server.kill();
    EXPECT_TRUE(capture->screen({0, 0, 10, 10}).isNull());
    EXPECT_TRUE(capture->window(gone).isNull());
    EXPECT_EQ(picture.pixelColor(150, 80), blue) << "a picture is kept after its server";
}
