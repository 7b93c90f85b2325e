/// The character set of the user, and texts that cross its edge.
///
/// All texts of the program are UTF-8. Motif draws scalable fonts as UTF-8 whatever the locale says
/// and reads its text widgets in the locale's character set, so that both agree in a UTF-8 locale
/// only: the program takes one wherever the system has one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tesserakit {

/// Sets LC_CTYPE, and nothing else, to the locale `language` ("" for the environment's) if its
/// character set is UTF-8, else to the same language in UTF-8, else to another UTF-8 locale;
/// without any of these to the locale itself, or "C". Answers the name of what is set then.
const char* use_locale(const char* language);

/// Bytes of the UTF-8 character that a text of one byte at least begins with, 0 when it begins with
/// none: a lone or cut sequence, one longer than it need be, a surrogate, a number above the last
/// character's.
std::size_t utf8_length(std::string_view text);
/// Texts of the locale are UTF-8: what is known to be valid crosses the edge as it is.
bool locale_is_utf8();

/// A text with each byte that is no part of a UTF-8 character shown as U+FFFD.
std::string valid_utf8(std::string_view text);

/// UTF-8 as the locale writes it: for Motif and Xlib. Bytes that are no UTF-8 come as U+FFFD, what
/// the character set lacks comes as "?". What is shown so is for the eye only: keep the text
/// itself.
std::string to_locale(std::string_view text);
/// A text in the locale's character set as UTF-8. In a UTF-8 locale it is handed on byte for byte,
/// so that a file name is still the file's; elsewhere bytes that are no character become U+FFFD.
std::string from_locale(std::string_view text);

}  // namespace tesserakit
