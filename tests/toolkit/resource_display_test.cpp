/// Images of the resource block as the server holds them.
#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/base/picture_scale.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/tesserakit.hpp"

#include <X11/Xutil.h>

#include <array>
#include <utility>

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

/// A pixmap of four by two pixels of these colours, by rows.
ResourcePixmap small_picture(const std::array<unsigned long, 8>& colours) {
    ResourcePixmap image{.width = 4, .height = 2};
    image.pixmap = XCreatePixmap(yydisplay.display, yydisplay.root, 4, 2,
                                 static_cast<unsigned>(yydisplay.depth));
    GC gc = XCreateGC(yydisplay.display, image.pixmap, 0, nullptr);
    for (int i = 0; i < 8; ++i) {
        XSetForeground(yydisplay.display, gc, colours[static_cast<std::size_t>(i)]);
        XDrawPoint(yydisplay.display, image.pixmap, gc, i % 4, i / 4);
    }
    XFreeGC(yydisplay.display, gc);
    return image;
}

TEST_F(ResourceDisplay, APictureTooLargeIsShrunkToTheMeansOfItsPixels) {
    ResourcePixmap image = small_picture({0x000000, 0x0000FF, 0x800000, 0x804000,  //
                                          0x0000FF, 0x0000FE, 0x800010, 0x804010});
    scale_to_fit(image, 2, 9);
    ASSERT_EQ(image.width, 2);
    ASSERT_EQ(image.height, 1);
    const ServerImage half(image);
    EXPECT_EQ(half.pixel(0, 0), 0x0000BFU) << "(0 + 255 + 255 + 254) / 4";
    EXPECT_EQ(half.pixel(1, 0), 0x802008U);
    scale_to_fit(image, 1, 1);
    EXPECT_EQ(image.width, 1);
    EXPECT_EQ(image.height, 1) << "never nothing";

    ResourcePixmap splash = yyResourceLoadImage(1199, image_kind::bitmap, true);
    scale_to_fit(splash, 300, 300);
    EXPECT_EQ(splash.width, 300);
    EXPECT_EQ(splash.height, 200);  // 660 / 986 of 300
}

TEST_F(ResourceDisplay, APictureTooSmallGrowsByAWholeNumber) {
    const std::array<unsigned long, 8> colours{0x000001, 0x000002, 0x000003, 0x000004,
                                               0x000005, 0x000006, 0x000007, 0x000008};
    ResourcePixmap image = small_picture(colours);
    for (const auto& [width, height] : {std::pair{7, 3}, std::pair{0, 9}, std::pair{9, -1}}) {
        const Pixmap before = image.pixmap;
        scale_to_fit(image, width, height);
        EXPECT_EQ(image.pixmap, before) << width << " by " << height;
    }
    scale_to_fit(image, 11, 5);
    ASSERT_EQ(image.width, 8);
    ASSERT_EQ(image.height, 4);
    const ServerImage twice(image);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(twice.pixel(x, y), colours[static_cast<std::size_t>(y / 2 * 4 + x / 2)]);
}

TEST_F(ResourceDisplay, AMissingImageHasStatusThree) {
    EXPECT_EQ(yyResourceLoadImage(77, image_kind::bitmap, true).status, 3);
    EXPECT_EQ(yyResourceLoadImage(1002, image_kind::icon, true).status, 3);
}

}  // namespace
