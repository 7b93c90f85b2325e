#include "toolkit/editor/text_search.hpp"

#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/letters.hpp"

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

/// Looks for one text, which is prepared once.
class Searcher {
public:
    Searcher(std::wstring_view text, std::wstring_view wanted, const SearchRules& rules)
        : text_(text), wanted_(wanted), rules_(rules) {
        std::ranges::transform(wanted_, wanted_.begin(), [this](wchar_t c) { return compared(c); });
    }

    std::optional<TextMatch> first_from(std::size_t from) const {
        if (!can_match()) return std::nullopt;
        const std::size_t last = text_.size() - wanted_.size();
        for (std::size_t at = from; at <= last; ++at)
            if (matches(at)) return TextMatch{at, at + wanted_.size()};
        return std::nullopt;
    }

    std::optional<TextMatch> last_before(std::size_t end) const {
        end = std::min(end, text_.size());
        if (!can_match() || end < wanted_.size()) return std::nullopt;
        for (std::size_t at = end - wanted_.size() + 1; at-- > 0;)
            if (matches(at)) return TextMatch{at, at + wanted_.size()};
        return std::nullopt;
    }

private:
    bool can_match() const { return !wanted_.empty() && wanted_.size() <= text_.size(); }

    wchar_t compared(wchar_t c) const {
        c = coded::shown(c);
        return rules_.match_case ? c : folded(c);
    }

    bool matches(std::size_t at) const {
        for (std::size_t i = 0; i < wanted_.size(); ++i)
            if (compared(text_[at + i]) != wanted_[i]) return false;
        return !rules_.whole_word || (is_border(at) && is_border(at + wanted_.size()));
    }

    bool is_border(std::size_t at) const {
        return at == 0 || at == text_.size() || !in_word(text_[at - 1]) || !in_word(text_[at]);
    }

    std::wstring_view text_;
    std::wstring wanted_;
    SearchRules rules_;
};

}  // namespace

std::optional<TextMatch> find_text(std::wstring_view text, std::wstring_view wanted,
                                   std::size_t from, const SearchRules& rules) {
    const Searcher searcher(text, wanted, rules);
    return rules.backward ? searcher.last_before(from) : searcher.first_from(from);
}

ReplacedText replace_all(std::wstring_view text, std::wstring_view wanted,
                         std::wstring_view replacement, const SearchRules& rules) {
    const Searcher searcher(text, wanted, rules);
    std::vector<TextMatch> matches;
    while (const auto match = searcher.first_from(matches.empty() ? 0 : matches.back().end))
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
