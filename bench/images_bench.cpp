/// The writers of image files beside libpng's and ImageMagick's in the same run, and the export of
/// the viewer's picture: images_bench FILE, on a display.
///
/// Writers: a picture in memory to the bytes of a file in memory; libpng at the same level of zlib
/// and without filter. The two sides take turns.
#include "app/event_loop.hpp"
#include "app/program_state.hpp"
#include "app/write_bitmap.hpp"
#include "scene/wcfgl_display.hpp"
#include "toolkit/image_write/bmp.hpp"
#include "toolkit/image_write/pcx.hpp"
#include "toolkit/image_write/png.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <png.h>
#include <zlib.h>
#ifdef GEMWRIGHT_BENCH_MAGICK
#include <wand/MagickWand.h>
#endif

namespace {

using namespace tesserakit;
using Bytes = std::vector<std::uint8_t>;

struct Picture {
    const char* name;
    int width;
    int height;
    Bytes pixels{};

    PictureRows rows() const {
        return {width, height, false, [this](int row) {
                    const auto size = static_cast<std::size_t>(width) * 3;
                    return std::span(pixels).subspan(static_cast<std::size_t>(row) * size, size);
                }};
    }
};

/// Lit balls on black, as the viewer's pictures are.
Picture balls(int width, int height) {
    Picture picture{"balls", width, height};
    const int across = height / 8;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double u = 2.0 * (x % across) / across - 1, v = 2.0 * (y % across) / across - 1;
            const double light = 1 - u * u - v * v;
            const auto shade = static_cast<std::uint8_t>(light > 0.4 ? 255 * std::sqrt(light) : 0);
            const bool first = (x / across + y / across) % 2 == 0;
            picture.pixels.insert(picture.pixels.end(), {shade, first ? shade : std::uint8_t{0},
                                                         static_cast<std::uint8_t>(shade / 2)});
        }
    return picture;
}

Picture noise(int width, int height) {
    Picture picture{"noise", width, height};
    std::mt19937 random(1);
    picture.pixels.resize(static_cast<std::size_t>(width * height) * 3);
    for (std::uint8_t& value : picture.pixels) value = static_cast<std::uint8_t>(random());
    return picture;
}

std::string by_libpng(const Picture& picture) {
    std::string file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp writer, png_bytep bytes, std::size_t size) {
            static_cast<std::string*>(png_get_io_ptr(writer))
                ->append(reinterpret_cast<const char*>(bytes), size);
        },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width),
                 static_cast<png_uint_32>(picture.height), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    png_set_compression_level(png, Z_DEFAULT_COMPRESSION);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(png, info);
    const PictureRows rows = picture.rows();
    for (int y = 0; y < picture.height; ++y) png_write_row(png, rows.row(y).data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

std::string by_png_file(const Picture& picture) {
    std::string file;
    png_file(picture.rows(), file);
    return file;
}

using Clock = std::chrono::steady_clock;

/// Processor time of this program, in ms: of two writers on a busy machine it tells more than time.
double processor_time() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

double milliseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Medians of the processor times of two writers, of the ratio in each turn, and the sizes of their
/// files.
void compare(const char* format, const Picture& picture, const std::function<std::size_t()>& ours,
             const std::function<std::size_t()>& theirs) {
    const int turns = picture.width > 1000 ? 11 : 51;
    std::vector<double> our_times, their_times, ratios;
    std::size_t our_size = 0, their_size = 0;
    for (int turn = 0; turn < turns; ++turn) {
        const double start = processor_time();
        our_size = ours();
        const double middle = processor_time();
        their_size = theirs();
        our_times.push_back(middle - start);
        their_times.push_back(processor_time() - middle);
        ratios.push_back(our_times.back() / their_times.back());
    }
    std::printf("%s %4d x %4d %s: %8.2f ms, other writer %8.2f ms, ratio %.3f; %zu and %zu bytes\n",
                format, picture.width, picture.height, picture.name, median(our_times),
                median(their_times), median(ratios), our_size, their_size);
}

#ifdef GEMWRIGHT_BENCH_MAGICK
void compare_with_magick(const Picture& picture) {
    MagickWand* wand = NewMagickWand();
    MagickSetResourceLimit(ThreadResource, 1);
    MagickConstituteImage(wand, static_cast<std::size_t>(picture.width),
                          static_cast<std::size_t>(picture.height), "RGB", CharPixel,
                          picture.pixels.data());
    const auto by_magick = [wand](const char* format) {
        MagickSetImageFormat(wand, format);
        std::size_t size = 0;
        MagickRelinquishMemory(MagickGetImageBlob(wand, &size));
        return size;
    };
    compare(
        "BMP", picture, [&] { return bmp_file(picture.rows()).size(); },
        [&] { return by_magick("BMP"); });
    compare(
        "PCX", picture, [&] { return pcx_file(picture.rows(), 0, 0).size(); },
        [&] { return by_magick("PCX"); });
    DestroyMagickWand(wand);
}
#endif

// ---- the export -----------------------------------------------------------------------------

/// Largest resident set since the last call, in bytes, and the present one.
struct Resident {
    double peak = 0;
    double now = 0;
};
Resident resident() {
    Resident found;
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) found.peak = 1024 * std::stod(line.substr(6));
        if (line.starts_with("VmRSS:")) found.now = 1024 * std::stod(line.substr(6));
    }
    std::ofstream("/proc/self/clear_refs") << 5;
    return found;
}

double total_of_export(const std::string& name) {
    const auto start = Clock::now();
    wcfgl_display::leave_context();
    const std::string failure = gemwright::write_bitmap(name);
    gemwright::return_to_window();
    if (!failure.empty()) std::printf("%s: %s\n", name.c_str(), failure.c_str());
    return milliseconds_since(start);
}

/// A frame in the bitmap, as write_bitmap draws it.
double drawing_alone() {
    const int handle = wbitmapcreate(600, 480);
    wglselect(2, handle, 0);
    wcfgl_display::init_context(false);
    const auto start = Clock::now();
    wcfgl_display::display();
    const double time = milliseconds_since(start);
    wbitmapdestroy(handle);
    gemwright::return_to_window();
    return time;
}

void time_exports(const std::string& folder) {
    for (const char* extension : {"png", "bmp", "pcx"}) {
        std::vector<double> total, drawing, saving;
        for (int turn = 0; turn < 31; ++turn) {
            total.push_back(total_of_export(folder + "/export." + extension));
            drawing.push_back(drawing_alone());
        }
        std::printf("export %s 600 x 480: %.1f ms, of which drawing %.1f ms\n", extension,
                    median(total), median(drawing));
    }
}

/// Memory of a saving beyond what was there, in sizes of the picture at 3 bytes a pixel.
void measure_memory(const std::string& folder, int width, int height) {
    const int handle = wbitmapcreate(width, height);
    wglselect(2, handle, 0);
    igrselect(2, handle);
    wcfgl_display::current_screen_width = width;
    wcfgl_display::current_screen_height = height;
    wcfgl_display::init_context(false);
    wcfgl_display::display();
    for (const char* extension : {"png", "bmp", "pcx"}) {
        resident();
        const double before = resident().now;
        igrsaveimage(folder + "/large." + extension);
        const double taken = resident().peak - before;
        std::printf("memory %s %d x %d: %.2f of the picture\n", extension, width, height,
                    taken / (3.0 * width * height));
    }
    wbitmapdestroy(handle);
    gemwright::return_to_window();
}

}  // namespace

int main(int argc, char** argv) {
    for (const Picture& picture :
         {balls(600, 480), balls(3840, 2160), noise(600, 480), noise(3840, 2160)}) {
        compare(
            "PNG", picture, [&] { return by_png_file(picture).size(); },
            [&] { return by_libpng(picture).size(); });
#ifdef GEMWRIGHT_BENCH_MAGICK
        compare_with_magick(picture);
#endif
    }
    std::fflush(stdout);
    gemwright::current_file_name =
        gemwright::file_name_from_command_line(argc, argv).value_or(gemwright::current_file_name);
    gemwright::start_program();
    wcfgl_display::display();
    std::string folder = (std::filesystem::temp_directory_path() / "images_bench").string();
    std::filesystem::create_directory(folder);
    time_exports(folder);
    measure_memory(folder, 3840, 2160);
    std::filesystem::remove_all(folder);
    gemwright::end_program();
    return EXIT_SUCCESS;
}
