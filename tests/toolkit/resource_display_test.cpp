/// Images of the resource block as the server holds them.
#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/tesserakit.hpp"

#include <X11/Xutil.h>

namespace {

using namespace tesserakit;

class ResourceDisplay : public testing::Test {
protected:
    void SetUp() override {
        winitialise();
        yyResourceImageInit();
    }
};

/// The high nibbles of a pixel of eight bits a component, as the block tells colours.
int code_of(unsigned long pixel) {
    return static_cast<int>((pixel >> 20 & 0xF) | (pixel >> 12 & 0xF) << 4 |
                            (pixel >> 4 & 0xF) << 8);
}

struct ServerImage {
    explicit ServerImage(const ResourcePixmap& image)
        : ximage(XGetImage(yydisplay.display, image.pixmap, 0, 0,
                           static_cast<unsigned>(image.width), static_cast<unsigned>(image.height),
                           AllPlanes, ZPixmap)) {}
    ~ServerImage() { XDestroyImage(ximage); }
    ServerImage(const ServerImage&) = delete;
    ServerImage& operator=(const ServerImage&) = delete;

    unsigned long pixel(int x, int y) const { return XGetPixel(ximage, x, y) & 0xFFFFFF; }

    XImage* ximage;
};

void expect_drawn(const ImagePixels& told, const ResourcePixmap& image, bool icon) {
    ASSERT_EQ(image.status, 0);
    ASSERT_EQ(image.width, told.width);
    ASSERT_EQ(image.height, told.height);
    const ServerImage drawn(image);
    for (int y = 0; y < told.height; ++y) {
        for (int x = 0; x < told.width; ++x) {
            const int colour = told.colours[static_cast<std::size_t>(y * told.width + x)];
            const bool background =
                colour == image_background || (icon && colour == ImagePixels::transparent);
            const unsigned long pixel = drawn.pixel(x, y);
            if (background) {
                ASSERT_EQ(pixel, pResImgBackground & 0xFFFFFF) << x << ',' << y;
            } else {
                ASSERT_EQ(code_of(pixel), colour) << x << ',' << y;
            }
        }
    }
}

TEST_F(ResourceDisplay, PixmapsShowTheImages) {
    ResourcePixmap strip = yyResourceLoadImage(30101, image_kind::bitmap, true);
    expect_drawn(resource_image_pixels(30101, image_kind::bitmap), strip, false);
    ResourcePixmap icon = yyResourceLoadImage(1208, image_kind::icon, true);
    expect_drawn(resource_image_pixels(1208, image_kind::icon), icon, true);
    // Colours that the icon shares with the strip outlive the strip.
    yyResourceFreeImagePixels(strip);
    EXPECT_TRUE(strip.colours.none());
    expect_drawn(resource_image_pixels(1208, image_kind::icon),
                 yyResourceLoadImage(1208, image_kind::icon, true), true);
}

TEST_F(ResourceDisplay, TheBackgroundsShadeStaysWhatItIsUnlessAskedFor) {
    const ResourcePixmap image = yyResourceLoadImage(1002, image_kind::bitmap, false);
    EXPECT_EQ(code_of(ServerImage(image).pixel(0, 0)), image_background);
}

TEST_F(ResourceDisplay, AMissingImageHasStatusThree) {
    EXPECT_EQ(yyResourceLoadImage(77, image_kind::bitmap, true).status, 3);
    EXPECT_EQ(yyResourceLoadImage(1002, image_kind::icon, true).status, 3);
}

}  // namespace
