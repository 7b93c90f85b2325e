/// Makes the source of the resource block:
///
///     resource_generator OUTPUT CATALOGUE-FILE...
///
/// Pictures stand in the folder images beside the catalogue file that names them.
/// Everything that is wrong is told with file and line; then nothing is written and the exit
/// status is 1.
#include "toolkit/resource/generator/image_file.hpp"
#include "toolkit/resource/generator/reader.hpp"
#include "toolkit/resource/generator/tables_writer.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <sstream>
#include <string>

namespace {

void read_file(const std::string& path, catalogue::Catalogue& catalogue,
               catalogue::Errors& errors) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    if (!file) errors.push_back({{path, 0}, "can't be read"});
    catalogue::read_text(text.str(), path, catalogue, errors);
}

std::string path_of(const catalogue::Image& image) {
    const std::filesystem::path catalogue_file = image.place.file;
    return (catalogue_file.parent_path() / "images" / image.file).string();
}

catalogue::Catalogue read_all(std::span<char*> files, catalogue::Errors& errors) {
    catalogue::Catalogue catalogue;
    for (const char* file : files) read_file(file, catalogue, errors);
    if (errors.empty()) catalogue::check(catalogue, errors);
    for (catalogue::Image& image : catalogue.images) {
        catalogue::read_image_file(path_of(image), image, errors);
    }
    return catalogue;
}

bool write_file(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    return !file.fail();
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 2) {
        std::cerr << "usage: resource_generator OUTPUT CATALOGUE-FILE...\n";
        return 2;
    }
    catalogue::Errors errors;
    const catalogue::Catalogue catalogue = read_all(arguments.subspan(2), errors);
    for (const catalogue::Error& error : errors) {
        std::cerr << error.place.file << ':' << error.place.line << ": " << error.message << '\n';
    }
    if (!errors.empty()) return 1;
    if (!write_file(arguments[1], catalogue::source_of(catalogue))) {
        std::cerr << arguments[1] << ": can't be written\n";
        return 1;
    }
    return 0;
}
