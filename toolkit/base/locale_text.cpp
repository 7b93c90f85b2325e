#include "toolkit/base/locale_text.hpp"

#include <X11/Xlib.h>

#include <iconv.h>
#include <langinfo.h>

#include <algorithm>
#include <array>
#include <clocale>

namespace tesserakit {

namespace {

constexpr std::string_view replacement = "\xef\xbf\xbd";  // U+FFFD
constexpr std::array fallback_locales{"C.UTF-8", "en_US.UTF-8"};

/// "de_DE.ISO-8859-1" and "de_DE@euro" as "de_DE.UTF-8".
std::string utf8_sister(std::string_view locale) {
    return std::string(locale.substr(0, locale.find_first_of(".@"))) + ".UTF-8";
}

bool use_utf8_locale(const char* locale) {
    return std::setlocale(LC_CTYPE, locale) && locale_is_utf8() && XSupportsLocale();
}

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U; }

/// From one character set to another; what can't be converted becomes `other`.
class Conversion {
public:
    Conversion(const char* to, const char* from, std::string_view other)
        : descriptor_(iconv_open(to, from)), other_(other) {}
    ~Conversion() {
        if (known()) iconv_close(descriptor_);
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// `step`: length of what is left out at the beginning of a text that can't be converted.
    std::string operator()(std::string text, std::size_t (*step)(std::string_view)) {
        std::string result;
        char* in = text.data();
        std::size_t left = text.size();
        while (left > 0) {
            std::array<char, 256> piece{};
            char* out = piece.data();
            std::size_t room = piece.size();
            const std::size_t before = left;
            if (known()) iconv(descriptor_, &in, &left, &out, &room);
            result.append(piece.data(), piece.size() - room);
            if (left == 0 || left < before) continue;
            const std::size_t skipped = step({in, left});
            in += skipped;
            left -= skipped;
            result += other_;
        }
        return result;
    }

private:
    // iconv_open's sign of failure is an all-ones pointer.
    bool known() const { return reinterpret_cast<std::intptr_t>(descriptor_) != -1; }
    iconv_t descriptor_;
    std::string_view other_;
};

}  // namespace

bool locale_is_utf8() { return std::string_view(nl_langinfo(CODESET)) == "UTF-8"; }

const char* use_locale(const char* language) {
    if (use_utf8_locale(language)) return std::setlocale(LC_CTYPE, nullptr);
    const char* own = std::setlocale(LC_CTYPE, language);
    if (own && use_utf8_locale(utf8_sister(own).c_str())) return std::setlocale(LC_CTYPE, nullptr);
    if (std::ranges::any_of(fallback_locales, use_utf8_locale))
        return std::setlocale(LC_CTYPE, nullptr);
    if (!std::setlocale(LC_CTYPE, language) || !XSupportsLocale()) std::setlocale(LC_CTYPE, "C");
    return std::setlocale(LC_CTYPE, nullptr);
}

std::size_t utf8_length(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80U) return 1;
    if (first < 0xc2U || first > 0xf4U) return 0;
    const std::size_t length = first < 0xe0U ? 2 : first < 0xf0U ? 3 : 4;
    if (text.size() < length || !std::ranges::all_of(text.substr(1, length - 1), continues))
        return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool wrong = (first == 0xe0U && second < 0xa0U) || (first == 0xedU && second > 0x9fU) ||
                       (first == 0xf0U && second < 0x90U) || (first == 0xf4U && second > 0x8fU);
    return wrong ? 0 : length;
}

std::string valid_utf8(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = utf8_length(text);
        result += length > 0 ? text.substr(0, length) : replacement;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::string to_locale(std::string_view text) {
    std::string valid = valid_utf8(text);
    if (locale_is_utf8()) return valid;
    return Conversion(nl_langinfo(CODESET), "UTF-8", "?")(std::move(valid), utf8_length);
}

std::string from_locale(std::string_view text) {
    if (locale_is_utf8()) return std::string(text);
    const auto byte = [](std::string_view) { return std::size_t{1}; };
    return Conversion("UTF-8", nl_langinfo(CODESET), replacement)(std::string(text), byte);
}

}  // namespace tesserakit
