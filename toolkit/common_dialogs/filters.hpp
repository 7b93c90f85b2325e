/// The filters of a file box: which names it lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tesserakit {

struct FileFilter {
    std::string description;
    std::string pattern;  ///< "*" for any text, "?" for any character
};

/// Reads "description|pattern|description|pattern|": blanks around each are dropped, a blank
/// pattern is "*", and what no bar follows is no filter unless it is the last pattern.
std::vector<FileFilter> read_filters(std::string_view text);

bool has_wildcard(std::string_view text);
/// As a shell does: a name that begins with a dot is matched by a pattern that does so, too.
bool matches(std::string_view name, std::string_view pattern);

}  // namespace tesserakit
