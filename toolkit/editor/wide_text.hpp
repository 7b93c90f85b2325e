/// Texts by characters and back. No X here.
#pragma once

#include <string>
#include <string_view>

namespace tesserakit {

/// Of valid UTF-8 (valid_utf8 in base/locale_text.hpp).
std::wstring wide_text(std::string_view text);
std::string utf8_text(std::wstring_view text);

}  // namespace tesserakit
