#include "toolkit/editor/text_search.hpp"

#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/letters.hpp"

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

/// Looks for one text, each character of the other being seen once: the longest beginning of the
/// wanted text that ends at a character follows from that of the character before (Knuth, Morris
/// and Pratt). Backward, both texts are read from their ends.
class Searcher {
public:
    Searcher(std::wstring_view text, std::wstring_view wanted, const SearchRules& rules)
        : text_(text), wanted_(wanted), rules_(rules) {
        std::ranges::transform(wanted_, wanted_.begin(), [this](wchar_t c) { return compared(c); });
        if (rules_.backward) std::ranges::reverse(wanted_);
        for (std::size_t matched = 0; const wchar_t c : wanted_) {
            // Of the first character, no shorter beginning ends there.
            if (!shorter_.empty()) matched = step(matched, c);
            shorter_.push_back(matched);
        }
    }

    std::optional<TextMatch> find(std::size_t from) const {
        from = std::min(from, text_.size());
        if (wanted_.empty()) return std::nullopt;
        const std::size_t count = rules_.backward ? from : text_.size() - from;
        std::size_t matched = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t at = rules_.backward ? from - 1 - i : from + i;
            matched = step(matched, compared(text_[at]));
            if (matched < wanted_.size()) continue;
            const std::size_t begin = rules_.backward ? at : at + 1 - wanted_.size();
            const TextMatch match{begin, begin + wanted_.size()};
            if (counts(match)) return match;
            matched = shorter_[matched - 1];
        }
        return std::nullopt;
    }

private:
    wchar_t compared(wchar_t c) const {
        c = coded::shown(c);
        return rules_.match_case ? c : folded(c);
    }

    /// How much of the wanted text ends with `c`, where `matched` of it ended before.
    std::size_t step(std::size_t matched, wchar_t c) const {
        while (matched > 0 && wanted_[matched] != c) matched = shorter_[matched - 1];
        return wanted_[matched] == c ? matched + 1 : 0;
    }

    bool counts(const TextMatch& match) const {
        return !rules_.whole_word || (is_border(match.begin) && is_border(match.end));
    }

    bool is_border(std::size_t at) const {
        return at == 0 || at == text_.size() || !in_word(text_[at - 1]) || !in_word(text_[at]);
    }

    std::wstring_view text_;
    std::wstring wanted_;
    SearchRules rules_;
    std::vector<std::size_t> shorter_;  // by the last character of a beginning of the wanted text,
                                        // the next shorter one that ends there too
};

}  // namespace

std::optional<TextMatch> find_text(std::wstring_view text, std::wstring_view wanted,
                                   std::size_t from, const SearchRules& rules) {
    return Searcher(text, wanted, rules).find(from);
}

ReplacedText replace_all(std::wstring_view text, std::wstring_view wanted,
                         std::wstring_view replacement, SearchRules rules) {
    rules.backward = false;
    const Searcher searcher(text, wanted, rules);
    std::vector<TextMatch> matches;
    while (const auto match = searcher.find(matches.empty() ? 0 : matches.back().end))
        matches.push_back(*match);
    const std::size_t length =
        text.size() - matches.size() * wanted.size() + matches.size() * replacement.size();
    if (length > longest_replaced && length > text.size()) return {.too_long = true};

    ReplacedText result{.count = matches.size()};
    result.text.reserve(length);
    std::size_t done = 0;
    for (const TextMatch& match : matches) {
        result.text += text.substr(done, match.begin - done);
        result.text += replacement;
        done = match.end;
    }
    result.text += text.substr(done);
    return result;
}

}  // namespace tesserakit
