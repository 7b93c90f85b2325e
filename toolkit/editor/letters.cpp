#include "toolkit/editor/letters.hpp"

#include <clocale>
#include <cwctype>

namespace tesserakit {

namespace {

/// The letters of all scripts; of English alone where the system lacks this locale.
locale_t all_letters() {
    static const locale_t letters = [] {
        const locale_t all = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return all ? all : newlocale(LC_CTYPE_MASK, "C", nullptr);
    }();
    return letters;
}

wchar_t wide(std::wint_t c) { return static_cast<wchar_t>(c); }
std::wint_t code(wchar_t c) { return static_cast<std::wint_t>(c); }
constexpr bool is_ascii(wchar_t c) { return c < 0x80; }

}  // namespace

wchar_t upper(wchar_t c) {
    if (is_ascii(c)) return c >= L'a' && c <= L'z' ? c - 32 : c;
    return wide(towupper_l(code(c), all_letters()));
}

wchar_t lower(wchar_t c) {
    if (is_ascii(c)) return c >= L'A' && c <= L'Z' ? c + 32 : c;
    return wide(towlower_l(code(c), all_letters()));
}

wchar_t folded(wchar_t c) { return is_ascii(c) ? lower(c) : lower(upper(c)); }

bool in_word(wchar_t c) {
    if (is_ascii(c)) return c == L'_' || (c >= L'0' && c <= L'9') || lower(c) != upper(c);
    return iswalnum_l(code(c), all_letters()) != 0;
}

}  // namespace tesserakit
