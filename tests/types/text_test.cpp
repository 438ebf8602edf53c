#include "posto/types/text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace posto {
namespace {

TEST(Text, CountsAndCutsCharacters) {
  EXPECT_EQ(char_count("aç€😀"), 4u);
  EXPECT_EQ(first_chars("ação", 3), "açã");
  EXPECT_EQ(first_chars("ação", 9), "ação");
  EXPECT_EQ(mid_chars("ação", 2, 2), "çã");
  EXPECT_EQ(mid_chars("ação", 4, 9), "o");
  EXPECT_EQ(mid_chars("ação", 5, 1), "");
  EXPECT_EQ(mid_chars("ação", 0, 2), "");
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim_end(" \t "), " \t");
}

TEST(Text, KnowsUtf8FromOtherBytes) {
  for (const char* text : {"", "abc", "é", "€", "😀", "\xF4\x8F\xBF\xBF"}) EXPECT_TRUE(is_valid_utf8(text)) << text;
  // A tail alone, a cut character, overlong forms, a surrogate, a code above the last.
  for (const char* text : {"\x80", "a\xC3", "\xE2\x82", "\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80",
                           "\xF4\x90\x80\x80", "\xFF"}) {
    EXPECT_FALSE(is_valid_utf8(text)) << text;
    EXPECT_EQ(char_count(text), std::string_view(text).size());
  }
}

TEST(Text, NamesAreBlindToCaseInAsciiOnly) {
  EXPECT_TRUE(equal_names("FL_Fechada", "Fl_fechada"));
  EXPECT_FALSE(equal_names("a", "ab"));
  EXPECT_FALSE(equal_names("@", "`"));
  EXPECT_FALSE(equal_names("Á", "á"));
  EXPECT_EQ(ascii_lower("AÇÃo"), "aÇÃo");
  EXPECT_EQ(ascii_upper("aço"), "AçO");
}

TEST(Windows1252, ReplacesAndCountsWhatHasNoPlace) {
  const Encoded encoded = to_windows_1252("Preço €5 “ok” 漢😀\x80");
  EXPECT_EQ(encoded.bytes,
            "Pre\xE7o \x80"
            "5 \x93ok\x94 ???");
  EXPECT_EQ(encoded.replaced, 3u);
  EXPECT_EQ(to_windows_1252("\xC2\x80").replaced, 1u);  // U+0080: its byte is the euro sign
}

RC_GTEST_PROP(Windows1252, EveryByteComesBack, (std::string bytes)) {
  const std::string text = from_windows_1252(bytes);
  RC_ASSERT(is_valid_utf8(text));
  RC_ASSERT(char_count(text) == bytes.size());
  const Encoded back = to_windows_1252(text);
  RC_ASSERT(back.bytes == bytes);
  RC_ASSERT(back.replaced == 0u);
}

RC_GTEST_PROP(Text, HeadAndTailMakeTheWhole, (std::string text, std::uint8_t cut)) {
  const std::size_t count = cut % 8u;
  const auto head = first_chars(text, count), tail = mid_chars(text, count + 1, text.size());
  RC_ASSERT(std::string(head) + std::string(tail) == text);
  RC_ASSERT(char_count(head) == std::min(count, char_count(text)));
}

}  // namespace
}  // namespace posto
