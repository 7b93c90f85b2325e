#include "crystal/string_utilities.hpp"
#include "crystal/string_utilities/free_format.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <numeric>
#include <sstream>
#include <vector>

namespace {
using namespace string_utilities;

TEST(Case, ChangesAsciiLettersOnly) {
    EXPECT_EQ(u_case("f m -3 m {\xe9}  "), "F M -3 M {\xe9}  ");
    EXPECT_EQ(l_case("P 21/C"), "p 21/c");
    FixedText<6> text = "aZ09";
    ucase(text);
    EXPECT_EQ(text.field(), "AZ09  ");
    EXPECT_EQ(l_case(text).field(), "az09  ");
}

TEST(PackString, DropsBlanksAndKeepsTheTrimmedLength) {
    EXPECT_EQ(pack_string(" x , y  "), "x,y   ");
    EXPECT_EQ(pack_string(FixedText<8>(" -y , x")).field(), "-y,x    ");
    EXPECT_EQ(pack_string("   "), "");
}

TEST(Cutst, TakesOneWordAtATime) {
    std::string_view line = "  ab  cd ";
    EXPECT_EQ(cutst(line), "ab");
    EXPECT_EQ(line, "cd");
    EXPECT_EQ(cutst(line), "cd");
    EXPECT_EQ(line, "");
    EXPECT_EQ(cutst(line), "");
    std::string_view tabbed = "a\tb c";  // only blanks separate
    EXPECT_EQ(cutst(tabbed), "a\tb");
}

TEST(Getword, CountsOneTooManyWhenTheListIsFull) {
    std::array<FixedText<3>, 2> words;
    init_err_string();
    EXPECT_EQ(getword(" one seven", std::span(words)), 2);
    EXPECT_FALSE(err_string);
    EXPECT_EQ(words[1].field(), "sev");
    EXPECT_EQ(getword("a b c d", std::span(words)), 3);
    EXPECT_TRUE(err_string);
    EXPECT_EQ(err_string_mess.trimmed(), "Dimension of DIRE exceeded");
    EXPECT_EQ(words[1].trimmed(), "b");
    EXPECT_EQ(getword("", std::span(words)), 0);
    EXPECT_TRUE(words[0].blank());
}

struct NumberCase {
    const char* line;
    std::vector<float> reals;
    std::vector<int> integers;
    bool error;
};

TEST(Getnum, ReadsNumbersUpToTheFirstBadWord) {
    const NumberCase cases[] = {
        {"225", {225.0f}, {225}, false},
        {"2 3", {2.0f, 3.0f}, {2, 3}, false},
        {"P 1", {}, {}, true},
        {"-3.5", {-3.5f}, {-3}, false},
        {"1.0E2 1.5e-2", {100.0f, 0.015f}, {1, 1}, false},
        {"2e+3", {2000.0f}, {2}, false},
        {".5 5.", {0.5f, 5.0f}, {0, 5}, false},
        {"7 +8 9", {7.0f}, {7}, true},   // no sign "+"
        {"7 1-2", {7.0f}, {7}, true},    // no sign inside
        {"4 1E-2-", {4.0f}, {4}, true},  // nor behind the exponent's own
        {"4 1E2.5", {4.0f}, {4}, true},
        {"- .", {0.0f, 0.0f}, {0, 0}, false},  // digits may be absent
        {"", {}, {}, false},
        {"1.2.3", {1.203f}, {1}, false},  // the second point takes a place
        {"00000000000000000000000000000000000000000000002", {2.0f}, {2}, false},
        {"99999999999 0E99", {1e11f, 0.0f}, {std::numeric_limits<int>::max(), 0}, false},
    };
    for (const NumberCase& c : cases) {
        SCOPED_TRACE(c.line);
        std::array<float, 4> reals{9, 9, 9, 9};
        std::array<int, 4> integers{9, 9, 9, 9};
        ASSERT_EQ(getnum(c.line, reals, integers), static_cast<int>(c.reals.size()));
        EXPECT_EQ(err_string, c.error);
        for (std::size_t i = 0; i < c.reals.size(); ++i) {
            EXPECT_FLOAT_EQ(reals[i], c.reals[i]);
            EXPECT_EQ(integers[i], c.integers[i]);
        }
        EXPECT_EQ(reals[3], 0.0f);
        EXPECT_EQ(integers[3], 0);
    }
}

TEST(Getnum, FillsAListToItsEndAndNoFurther) {
    std::array<float, 2> reals{};
    std::array<int, 2> integers{};
    EXPECT_EQ(getnum("1 2", reals, integers), 2);
    EXPECT_FALSE(err_string);
    EXPECT_EQ(getnum("1 2 3", reals, integers), 2);
    EXPECT_TRUE(err_string);
    EXPECT_EQ(err_string_mess.trimmed(), "Limits of digit variable exceeded in GETNUM");
}

TEST(NumbersWithDeviation, AreReadAndWrittenInUnitsOfTheLastDigit) {
    std::array<float, 4> values{}, sigmas{};
    ASSERT_EQ(getnum_std("0.1234(5) 12(3) -1.50 2.5(1.25)", values, sigmas), 4);
    EXPECT_FALSE(err_string);
    EXPECT_FLOAT_EQ(values[0], 0.1234f);
    EXPECT_FLOAT_EQ(sigmas[0], 0.0005f);
    EXPECT_FLOAT_EQ(sigmas[1], 3.0f);
    EXPECT_FLOAT_EQ(values[2], -1.5f);
    EXPECT_EQ(sigmas[2], 0.0f);
    EXPECT_FLOAT_EQ(sigmas[3], 1.25f);
    EXPECT_EQ(setnum_std(0.1234f, 0.0005f), "0.1234(5)");
    EXPECT_EQ(setnum_std(5.43102f, 0.0012f), "5.4310(12)");
    EXPECT_EQ(setnum_std(12.3f, 0.0999f), "12.30(10)");
    EXPECT_EQ(setnum_std(1234.0f, 25.0f), "1234(25)");
    EXPECT_EQ(setnum_std(-2.5f, 0.0f), "-2.5");
    EXPECT_EQ(setnum_std(3.0f, 0.0f), "3");
}

TEST(NumbersWithDeviation, TellWhatIsWrong) {
    std::array<float, 2> values{}, sigmas{};
    const std::pair<const char*, const char*> cases[] = {
        {"  ", "Blank line"},
        {"1.0 x", "Bad format"},
        {"1.0(2", "Wrong format using Standard values"},
        {"1.0(2)3", "Wrong format using Standard values"},
        {"1.0()", "Wrong format using Standard values"},
        {"1 2 3", "Bad format"},
    };
    for (const auto& [line, message] : cases) {
        SCOPED_TRACE(line);
        getnum_std(line, values, sigmas);
        EXPECT_TRUE(err_string);
        EXPECT_EQ(err_string_mess.trimmed(), message);
    }
}

TEST(Fraction, PrintsEveryReducedFractionOfItsRange) {
    for (int d = 2; d <= 24; ++d)
        for (int n = 1; n <= 24; ++n) {
            const int g = std::gcd(n, d);
            if (g > 1) continue;
            const float v = static_cast<float>(n) / static_cast<float>(d);
            const std::string text = std::to_string(n) + "/" + std::to_string(d);
            EXPECT_EQ(get_fraction_2dig(v).trimmed(), "+" + text);
            EXPECT_EQ(get_fraction_2dig(-v).trimmed(), "-" + text);
            EXPECT_EQ(get_fraction_1dig(v).trimmed(), n < 10 && d < 10 ? "+" + text : "**/*");
        }
}

TEST(Fraction, PrintsIntegersWithASignAndKeepsStarsOtherwise) {
    const std::pair<float, const char*> cases[] = {{2.0f, "+2"},        {-1.0f, "-1"},
                                                   {0.0f, " 0"},        {12.0f, "+12"},
                                                   {-12.0f, "-12"},     {9.999995f, "+10"},
                                                   {0.123f, "***/**"},  {0.0625f, "+1/16"},
                                                   {0.33333f, "+1/3"},  {0.3333f, "***/**"},
                                                   {100.0f, "+**"},     {-100.0f, "***"},
                                                   {1e30f, "+**"},      {std::nanf(""), "***/**"},
                                                   {INFINITY, "***/**"}};
    for (const auto& [v, text] : cases) {
        SCOPED_TRACE(v);
        EXPECT_EQ(get_fraction_2dig(v).trimmed(), text);
    }
    EXPECT_EQ(get_fraction_1dig(0.0625f).field(), "**/*");
    EXPECT_EQ(frac_trans_1dig({0.5f, -0.25f, 0.0f}).field(), "(+1/2,-1/4, 0  )");
    EXPECT_EQ(frac_trans_2dig({1.0f / 12.0f, 0.123f, 2.0f}).field(), "(+1/12 ,***/**,+2    )");
}

TEST(EqualSetsText, IgnoresOrderButNotCaseOrCount) {
    using List = std::vector<FixedText<4>>;
    const List a{"x", "y", "z"}, b{"z", "x", "y"}, c{"x", "y", "Z"}, d{"x", "y"};
    const auto equal = [](const List& p, const List& q) {
        return equal_sets_text(std::span(p), std::span(q));
    };
    EXPECT_TRUE(equal(a, b));
    EXPECT_FALSE(equal(a, c));
    EXPECT_FALSE(equal(a, d));
}

TEST(Keywords, AreFoundInAnyCaseWithinTheRange) {
    const std::vector<std::string> lines{"! cell", " cell 5.43 2 ", "Title a b", "CELL 9"};
    const auto first = read_key_str(lines, 1, 4, "CELL");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->line, 2);
    EXPECT_EQ(first->rest, "5.43 2");
    EXPECT_EQ(read_key_str(lines, 3, 99, "CELL")->line, 4);
    EXPECT_FALSE(read_key_str(lines, 3, 3, "CELL"));
    EXPECT_FALSE(read_key_str(lines, -5, 0, "CELL"));
    std::array<float, 3> reals{}, sigmas{};
    std::array<int, 3> integers{};
    EXPECT_EQ(read_key_value(lines, 1, 4, "CELL", reals, integers)->count, 2);
    EXPECT_EQ(integers[0], 5);
    EXPECT_EQ(read_key_valuest(lines, 1, 4, "CELL", reals, sigmas)->count, 2);
    std::array<FixedText<8>, 3> words;
    EXPECT_EQ(read_key_strval(lines, 1, 4, "TITLE", std::span(words))->count, 2);
    EXPECT_EQ(words[1].trimmed(), "b");
}

TEST(Files, GiveTheirLinesOrSayThatTheyAreMissing) {
    const std::string name = testing::TempDir() + "free_format_lines.txt";
    std::ofstream(name) << "one\r\ntwo\n\nlast";
    EXPECT_EQ(number_lines(name), 4);
    EXPECT_EQ(reading_lines(name, 2), (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(reading_lines(name, 9).size(), 4u);
    std::remove(name.c_str());
    EXPECT_EQ(number_lines(name), 0);
    EXPECT_EQ(err_string_mess.trimmed(), "Not exist the file");
    const int unit = get_logunit();
    ASSERT_GE(unit, 3);
    EXPECT_EQ(dup2(0, unit), unit);
    EXPECT_GT(get_logunit(), unit);
    close(unit);
}

TEST(Findfmt, FitsTheItemsOnTheLine) {
    const std::array<std::array<const char*, 3>, 5> cases{{
        {"Fe1  0.25,3", "a,f,i", "(a3,2x,f4.2,1x,i1)"},
        {"  O -1.5E-2 12.", "(A, 2F)", "(2x,a1,1x,f7.1,1x,f3.0)"},
        {"7", "f", "(f1.0)"},
        {"1 2 3 rest", "3i", "(i1,1x,i1,1x,i1)"},
        {"1.50 rest is left alone", "F", "(f4.2)"},
    }};
    for (const auto& [text, description, expected] : cases) {
        SCOPED_TRACE(text);
        std::istringstream file(text);
        std::string line, format;
        EXPECT_EQ(findfmt(file, description, line, format), FindfmtError::none);
        EXPECT_EQ(format, expected);
        EXPECT_EQ(line, text);
    }
}

TEST(Findfmt, ReportsThePlaceOfAFailure) {
    std::istringstream file("Fe 0.5\nFe x\n\n1\n");
    std::string line, format;
    init_findfmt(10, 7);
    EXPECT_EQ(findfmt(file, "a,f", line, format), FindfmtError::none);
    EXPECT_EQ(findfmt(file, "a,f", line, format), FindfmtError::no_number);
    EXPECT_EQ(format, "");
    std::ostringstream report;
    findfmt_err(report);
    EXPECT_EQ(report.str(),
              "FindFMT: Read error on the data line, error number: 2\n"
              " => Please check your input file at line: 12\n"
              "   Fe x\n"
              "      ^----\n");
    EXPECT_EQ(findfmt(file, "a", line, format), FindfmtError::missing_item);
    EXPECT_EQ(err_string_mess.trimmed(), "Blank line");
    EXPECT_EQ(findfmt(file, " ", line, format), FindfmtError::empty_format);
    EXPECT_EQ(findfmt(file, "a", line, format), FindfmtError::end_of_file);
    report.str("");
    findfmt_err(report);
    EXPECT_EQ(report.str(),
              "FindFMT: End of file !\n => Non FATAL End of file !,  logical unit: 7\n");
    std::istringstream more("1 2");
    EXPECT_EQ(findfmt(more, "i,q", line, format), FindfmtError::bad_description);
    std::istringstream endless("1 2");
    EXPECT_EQ(findfmt(endless, "999999999i", line, format), FindfmtError::missing_item);
}

}  // namespace
