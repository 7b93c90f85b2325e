#include "tests/support/display_input.hpp"
#include "tests/support/png_pixels.hpp"
#include "tests/support/temp_file.hpp"

#include <gmock/gmock.h>

#include "toolkit/base/display.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/drawable_copy.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/save_image.hpp"

#include <GL/gl.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <vector>

using namespace tesserakit;
using namespace display_input;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A bitmap that OpenGL has drawn, selected: red, with the lower left quarter blue.
int drawn_bitmap(int width, int height) {
    const int bitmap = wbitmapcreate(width, height);
    wglselect(2, bitmap, 0);
    igrselect(2, bitmap);
    EXPECT_EQ(infoerror(1), 0);
    glViewport(0, 0, width, height);
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glColor3f(0.0f, 0.0f, 1.0f);
    glRectf(-1.0f, -1.0f, 0.0f, 0.0f);
    return bitmap;
}

/// What drawn_bitmap shows, the uppermost row first.
Bytes drawn_pixels(int width, int height) {
    Bytes pixels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool blue = x < width / 2 && y >= height / 2;
            pixels.insert(pixels.end(),
                          {std::uint8_t(blue ? 0 : 255), 0, std::uint8_t(blue ? 255 : 0)});
        }
    return pixels;
}

class SaveImageDisplay : public testing::Test {
protected:
    SaveImageDisplay() {
        windowopen2({.width = 300, .height = 200, .title = "Root"});
        window_titled("Root");
    }
    std::string saved(const std::string& name) const {
        igrsaveimage(folder_.name(name));
        EXPECT_EQ(infoerror(1), 0) << name;
        return content_of(folder_.name(name));
    }
    TempDirectory folder_;
};

TEST_F(SaveImageDisplay, ThePictureOfOpenGLIsSavedInTheFormatOfItsName) {
    drawn_bitmap(600, 480);
    saved("a.png");
    EXPECT_EQ(png_pixels(content_of(folder_.name("a.png"))), drawn_pixels(600, 480));
    for (const char* name : {"a.png", "b.PnG", "c d.PNG"})
        EXPECT_THAT(saved(name), StartsWith("\211PNG")) << name;
    for (const char* name : {".bmp", "e.gwr.BMP"}) EXPECT_THAT(saved(name), StartsWith("BM"));
    for (const char* name : {"f.jpg", "g", "png", "h.png.bak"})
        EXPECT_THAT(saved(name), StartsWith("\012\005\001\010")) << name;
    igrsaveimage(folder_.name("padded.bmp") + "   ");
    EXPECT_THAT(content_of(folder_.name("padded.bmp")), StartsWith("BM"));
}

TEST_F(SaveImageDisplay, AnAreaIsCutOut) {
    drawn_bitmap(200, 100);
    const std::string name = folder_.name("part.png");
    ASSERT_EQ(yysaveimage(ImageFormat::Png, {98, 49, 3, 2}, name).status, 0);
    EXPECT_EQ(png_pixels(content_of(name)), (Bytes{255, 0, 0, 255, 0, 0, 255, 0, 0,  //
                                                   0, 0, 255, 0, 0, 255, 255, 0, 0}));
    ASSERT_EQ(yysaveimage(ImageFormat::Pcx, {98, 49, 3, 2}, name).status, 0);
    EXPECT_EQ(content_of(name).substr(4, 8), (std::string{98, 0, 49, 0, 100, 0, 50, 0}));
}

// What the renderer can't draw whole is refused, and OpenGL goes on.
TEST_F(SaveImageDisplay, TakesBitmapsOfAnySizeThatTheRendererCanDraw) {
    const int larger = wbitmapcreate(32767, 1);
    wglselect(2, larger, 0);
    EXPECT_EQ(infoerror(1), 1035);
    wbitmapdestroy(larger);
    EXPECT_EQ(wbitmapcreate(32768, 1), 0);
    EXPECT_EQ(infoerror(1), 1020);

    for (const auto& [width, height] :
         {std::pair{1, 1}, {1, 4096}, {4096, 1}, {33, 4095}, {4096, 4096}}) {
        const int bitmap = drawn_bitmap(width, height);
        EXPECT_EQ(saved("a.bmp").size(),
                  54U + static_cast<std::size_t>((width * 3 + 3) / 4 * 4 * height));
        wbitmapdestroy(bitmap);
    }
}

TEST_F(SaveImageDisplay, AFailureIsToldAndTheOldFileStays) {
    drawn_bitmap(600, 480);
    const auto failed = [this](const std::string& name, int code, int error) {
        std::string reason;
        igrsaveimage(folder_.name(name), &reason);
        EXPECT_EQ(infoerror(1), code) << name;
        EXPECT_EQ(infoerror(2), error) << name;
        EXPECT_EQ(reason, std::strerror(error));
    };
    failed("none/a.png", 1, ENOENT);
    std::filesystem::create_directory(folder_.name("folder.png"));
    failed("folder.png", 1, EISDIR);
    failed(std::string(256, 'n'), 1, ENAMETOOLONG);
    saved(std::string(251, 'n') + ".png");

    // As a disk that is full before the picture is whole.
    folder_.file("old.png", "old");
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tight{1000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tight);
    for (const char* name : {"old.png", "new.bmp"}) failed(name, 2, EFBIG);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(content_of(folder_.name("old.png")), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 3);
}

TEST_F(SaveImageDisplay, WithoutAPictureNothingIsSaved) {
    drawable.type = DrawableType::Metafile;
    igrsaveimage(folder_.name("a.png"));
    EXPECT_EQ(infoerror(1), 1063);
    yygrselectnone();
    for (const char* name : {"a.png", ""}) {
        igrsaveimage(name[0] ? folder_.name(name) : "");
        EXPECT_EQ(infoerror(1), 1072);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

/// What another program gets for "Paste": asks for the clipboard's pixmap, while this one serves
/// its messages; None if it gets nothing.
Pixmap pasted(Display* other) {
    const Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
    XConvertSelection(other, XInternAtom(other, "CLIPBOARD", False), XA_PIXMAP, XA_PIXMAP, window,
                      CurrentTime);
    XFlush(other);
    XEvent event{};
    poll_until([&] { return XCheckTypedEvent(other, SelectionNotify, &event) == True; });
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(other, window, XA_PIXMAP, 0, 10, True, AnyPropertyType, &type, &format,
                       &count, &rest, &data);
    EXPECT_EQ(format, 32);
    EXPECT_EQ(count, 1U);
    const Pixmap pixmap = count == 1 ? *reinterpret_cast<unsigned long*>(data) : None;
    XFree(data);
    return pixmap;
}

TEST_F(SaveImageDisplay, ABlankNameCopiesToTheClipboard) {
    const std::unique_ptr<Display, int (*)(Display*)> other(XOpenDisplay(nullptr), XCloseDisplay);
    for (const int width : {10, 20}) {
        const int bitmap = drawn_bitmap(width, 10);
        igrsaveimage(width == 10 ? "" : "  ");
        ASSERT_EQ(infoerror(1), 0);
        wbitmapdestroy(bitmap);
        const std::unique_ptr<XImage, int (*)(XImage*)> image(
            XGetImage(other.get(), pasted(other.get()), 0, 0, static_cast<unsigned>(width), 10,
                      AllPlanes, ZPixmap),
            [](XImage* one) { return XDestroyImage(one); });
        ASSERT_TRUE(image);
        EXPECT_EQ(XGetPixel(image.get(), width - 1, 9), 0xff0000U);
        EXPECT_EQ(XGetPixel(image.get(), 0, 9), 0x0000ffU);
    }
}

}  // namespace
