/// What the environment and the initialisation file say. No X here.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tesserakit {

struct Settings {
    std::string root_directory = "/usr/local/tess/";  ///< of the toolkit, with its trailing slash
    std::string character_directory;                  ///< CHARDIR; default charsets/ under the root
    std::string character_set = "standard.chr";       ///< CHARSET
    std::string browser = "mozilla";                  ///< BROWSER
    std::string pdf_reader = "xpdf";                  ///< PDFREAD
    int debug_level = 0;                              ///< TESSDEBUG's first digit, then DEBUG
    int hpgl_dialect = 0;                             ///< HPGL2
    int plotter = 0;                                  ///< PLOTTER
    int printer = 0;                                  ///< PRINTER
};
extern Settings& settings;

/// The environment's part: TESSROOT, else TKIDE cut where the word TKIDE stands in it, and
/// TESSDEBUG. An empty variable counts as not set.
Settings settings_of_environment();

/// Takes over what one line "keyword = value" sets. Keywords are read in any case and cut at 8
/// characters; tabs count as blanks. Unknown keywords, lines without a keyword or an equals sign,
/// and numbers that are none change nothing.
void read_ini_line(std::string_view line, Settings& values);

/// Bytes of an initialisation file; a larger one is none.
inline constexpr std::uintmax_t largest_ini_file = 1U << 20U;

/// The initialisation file: `name` if it exists, else TESSINIT's, else tesser.ini in the working
/// directory, else in the toolkit's root. Empty when there is none. Only regular files count.
std::string find_ini_file(std::string_view name, const Settings& values);

/// Fills `settings`: defaults, environment, file.
void yywinitialise(std::string_view inifile);

}  // namespace tesserakit
