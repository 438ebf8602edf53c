#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <tuple>

#include "posto/types/text.h"

namespace posto {
namespace {

TEST(Collation, OrdersAsTheDatabase) {
  // Every text is less than the next one.
  const char* ascending[] = {"",     " a",         "_",    "-x",  "$1",  "1",  "10", "2", "a",  "agua",
                             "água", "aguardente", "azul", "b a", "b-a", "ba", "c",  "ç", "ca", "ço",
                             "d",    "e",          "éa",   "ez",  "o",   "ó",  "õ",  "p", "z",  "漢"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      const int order = compare_text(ascending[i], ascending[j]);
      EXPECT_EQ((order > 0) - (order < 0), (i > j) - (i < j)) << ascending[i] << " and " << ascending[j];
    }
  }
}

TEST(Collation, IsBlindToCaseAndTrailingBlanksButNotToAccents) {
  for (const auto& [a, b] :
       {std::pair{"Ação", "aÇÃO"}, {"SERVIcO", "servico  "}, {"  ", ""}, {"ŠŒŽŸ", "šœžÿ"}, {"ß", "ß "}}) {
    EXPECT_EQ(compare_text(a, b), 0) << a << " and " << b;
    EXPECT_EQ(hash_text(a), hash_text(b)) << a << " and " << b;
  }
  for (const auto& [a, b] : {std::pair{"acao", "ação"}, {" a", "a"}, {"×", "÷"}, {"æ", "a"}, {"\xC3", "\xC4"}}) {
    EXPECT_NE(compare_text(a, b), 0) << a << " and " << b;
  }
}

// Short texts over a few characters that are near to each other, so that equal and nearly equal ones come up.
rc::Gen<std::string> near_text() {
  const auto piece = rc::gen::element<std::string>("a", "A", "á", "Á", "ã", "b", "ç", "1", " ", "-", "º", "\xC3", "ÿ");
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), [](const std::vector<std::string>& pieces) {
    std::string text;
    for (const auto& p : pieces) text += p;
    return text;
  });
}

RC_GTEST_PROP(Collation, IsATotalPreorderThatTheHashAgreesWith, ()) {
  const std::string a = *near_text(), b = *near_text(), c = *near_text();
  RC_ASSERT(compare_text(a, b) == -compare_text(b, a));
  if (compare_text(a, b) <= 0 && compare_text(b, c) <= 0) RC_ASSERT(compare_text(a, c) <= 0);
  if (compare_text(a, b) == 0) {
    RC_ASSERT(hash_text(a) == hash_text(b));
    RC_ASSERT(compare_text(a, c) == compare_text(b, c));
  }
  RC_ASSERT(compare_text(a, a + "  ") == 0);
  RC_ASSERT(compare_text(a, ascii_upper(a)) == 0);
}

TEST(Like, Patterns) {
  const std::tuple<const char*, const char*, bool> cases[] = {{"Posto Ipiranga", "posto%", true},
                                                              {"Posto", "%sto", true},
                                                              {"Posto", "%os%", true},
                                                              {"Posto", "pos", false},
                                                              {"", "%", true},
                                                              {"", "", true},
                                                              {"", "_", false},
                                                              {"ação", "a__o", true},
                                                              {"ação", "acao", false},
                                                              {"AÇÃO", "ação", true},
                                                              {"ab ", "ab", false},
                                                              {"ab", "ab ", false},
                                                              {"c", "[a-f]", true},
                                                              {"G", "[a-f]", false},
                                                              {"E", "[a-f]", true},
                                                              {"ç", "[a-f]", true},
                                                              {"y", "[xyz]", true},
                                                              {"y", "[^xyz]", false},
                                                              {"w", "[^x-z]", true},
                                                              {"-", "[a-]", true},
                                                              {"-", "[-a]", true},
                                                              {"50%", "50[%]", true},
                                                              {"50x", "50[%]", false},
                                                              {"a_b", "a[_]b", true},
                                                              {"[", "[[]", true},
                                                              {"]", "]", true},
                                                              {"[a", "[a", false},
                                                              {"a", "%[a", false},
                                                              {"a", "[]", false},
                                                              {"d", "[f-a]", false},
                                                              {"abcbc", "a%bc", true},
                                                              {"abcbd", "a%bc", false},
                                                              {"a", "a%%", true},
                                                              {"\xC3(", "_(", true}};
  for (const auto& [text, pattern, like] : cases)
    EXPECT_EQ(like_text(text, pattern), like) << text << " like " << pattern;
}

TEST(Like, DoesNotBlowUp) {
  std::string pattern;
  for (int i = 0; i < 200; ++i) pattern += "%a";
  EXPECT_FALSE(
      like_text(std::string(5'000, 'a'), pattern + "b"));  // one try for each way to spread the runs never ends
}

// Tries every length of every run, for patterns without sets.
bool like_by_trying(std::string_view text, std::string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern.front() == '%') {
    return like_by_trying(text, pattern.substr(1)) || (!text.empty() && like_by_trying(text.substr(1), pattern));
  }
  const bool takes = !text.empty() && (pattern.front() == '_' || equal_names(pattern.substr(0, 1), text.substr(0, 1)));
  return takes && like_by_trying(text.substr(1), pattern.substr(1));
}

RC_GTEST_PROP(Like, AgreesWithTryingEverything, ()) {
  const auto some_of = [](const char* letters) {
    return rc::gen::resize(12, rc::gen::container<std::string>(rc::gen::elementOf(std::string(letters))));
  };
  const std::string text = *some_of("aAb"), pattern = *some_of("ab_%%");
  RC_ASSERT(like_text(text, pattern) == like_by_trying(text, pattern));
}

}  // namespace
}  // namespace posto
