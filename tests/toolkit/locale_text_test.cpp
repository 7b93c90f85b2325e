#include <gtest/gtest.h>

#include "toolkit/base/locale_text.hpp"

#include <clocale>
#include <string>

using namespace tesserakit;

namespace {

struct LocaleText : testing::Test {
    void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

}  // namespace

TEST_F(LocaleText, BytesThatAreNoUtf8AreShownOneByOne) {
    EXPECT_EQ(valid_utf8("M\u00fcller \u03b1 \u20ac \U0001d6fc"),
              "M\u00fcller \u03b1 \u20ac \U0001d6fc");
    EXPECT_EQ(valid_utf8("M\xfcller"), "M\ufffdller");
    EXPECT_EQ(valid_utf8("\xc3"), "\ufffd") << "cut";
    EXPECT_EQ(valid_utf8("\xe2\x82x"), "\ufffd\ufffdx") << "cut, then a letter";
    EXPECT_EQ(valid_utf8("\xbc\xc1\xbf"), "\ufffd\ufffd\ufffd") << "no beginning, overlong slash";
    EXPECT_EQ(valid_utf8("\xe0\x80\xaf"), "\ufffd\ufffd\ufffd") << "overlong";
    EXPECT_EQ(valid_utf8("\xed\xa0\x80"), "\ufffd\ufffd\ufffd") << "surrogate";
    EXPECT_EQ(valid_utf8("\xf4\x90\x80\x80"), "\ufffd\ufffd\ufffd\ufffd") << "above the last";
    EXPECT_EQ(valid_utf8("\xf0\x8f\xbf\xbf"), "\ufffd\ufffd\ufffd\ufffd") << "overlong";
    EXPECT_EQ(valid_utf8("\xf4\x8f\xbf\xbf"), "\U0010ffff");
}

TEST_F(LocaleText, OnlyTheCharacterSetIsTakenFromTheUser) {
    const char* german = use_locale("de_DE.UTF-8");
    ASSERT_STREQ(german, "de_DE.UTF-8");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_TIME, nullptr), "C");
    // Drawn by Motif as UTF-8 in any case.
    EXPECT_STREQ(use_locale("de_DE.ISO-8859-1"), "de_DE.UTF-8");
    EXPECT_STREQ(use_locale("de_DE@euro"), "de_DE.UTF-8");
    EXPECT_STREQ(use_locale("C"), "C.UTF-8");
    EXPECT_STREQ(use_locale("xx_YY.UTF-8"), "C.UTF-8") << "not installed";
}

TEST_F(LocaleText, AUtf8LocaleTakesTextsAsTheyAre) {
    ASSERT_TRUE(std::setlocale(LC_CTYPE, "C.UTF-8"));
    EXPECT_EQ(to_locale("M\u00fcller \u03b1 x"), "M\u00fcller \u03b1 x");
    EXPECT_EQ(from_locale("M\u00fcller \u03b1 x"), "M\u00fcller \u03b1 x");
    EXPECT_EQ(to_locale("M\xfcller"), "M\ufffdller");
    EXPECT_EQ(from_locale("M\xfcller"), "M\xfcller") << "a file's name stays the file's";
}

TEST_F(LocaleText, AnotherCharacterSetTakesWhatItHas) {
    ASSERT_TRUE(std::setlocale(LC_CTYPE, "de_DE.ISO-8859-1"));
    EXPECT_EQ(to_locale("M\u00fcller \u03b1 x"), "M\xfcller ? x");
    EXPECT_EQ(from_locale("M\xfcller  x"), "M\u00fcller  x");
    EXPECT_EQ(to_locale("M\xfcller"), "M?ller");
    const std::string longer(1000, '\xfc');
    EXPECT_EQ(to_locale(from_locale(longer)), longer);
    ASSERT_TRUE(std::setlocale(LC_CTYPE, "C"));
    EXPECT_EQ(to_locale("M\u00fcller"), "M?ller");
    EXPECT_EQ(from_locale("M\xfcller"), "M\ufffdller");
}
