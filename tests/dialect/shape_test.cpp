// A statement that is read as a known shape gives what reading it from the start gives.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "posto/tsql/lexer.h"

namespace posto::tsql {

void PrintTo(const Literal& literal, std::ostream* out) {
  *out << static_cast<int>(literal.kind) << ":" << literal.raw;
}
bool operator==(const Literal& a, const Literal& b) { return a.kind == b.kind && a.raw == b.raw; }

namespace {

// Whatever can stand beside a literal and change where it begins or ends.
const std::vector<std::string> kPieces = {"1",  "12.50",  ".5",   "7e2", "e5",  "2147483648", "'a'", "'%b'",
                                          "''", "'x''y'", "N",    "_",   ".",   "-",          "--",  "\r",
                                          " ",  " ",      "=",    "(",   "[a]", "[",          "]",   "\"q\"",
                                          "\"", "'",      "\x01", "Cd",  ",",   "1.2345678"};

std::string joined(const std::vector<std::size_t>& pieces) {
  std::string text;
  for (std::size_t piece : pieces) text += kPieces[piece];
  return text;
}

RC_GTEST_PROP(ShapeTest, ReadAsAKnownShapeIsReadFromTheStart, ()) {
  const auto piece = rc::gen::inRange<std::size_t>(0, kPieces.size());
  auto pieces = *rc::gen::container<std::vector<std::size_t>>(piece);
  const std::string first = joined(pieces);
  if (!pieces.empty()) pieces[*rc::gen::inRange<std::size_t>(0, pieces.size())] = *piece;
  const std::string second = joined(pieces);

  Shape known, whole, quick;
  known.read(first);
  whole.read(second);
  const bool same = whole.text == known.text && whole.places == known.places;
  if (quick.read_as(known, second)) {
    RC_ASSERT(same);
    RC_ASSERT(quick.literals == whole.literals);
  }
}

TEST(ShapeTest, StatementsThatDifferInValuesAreReadAsOneShape) {
  Shape known, next;
  known.read("UPDATE T SET a = 1.5 ,b = 'x' WHERE d = '2009-04-03' And k = -7");
  EXPECT_TRUE(next.read_as(known, "UPDATE T SET a = .25 ,b = 'it''s' WHERE d = '' And k = -12345"));
  EXPECT_EQ(next.literals.size(), 4u);
  EXPECT_EQ(next.literals[1].text(), "it's");
  for (const char* other : {"UPDATE T SET a = 1 ,b = 'x' WHERE d = '2009-04-03' And k = -7",
                            "UPDATE T SET a = 1.5 ,b = '%x' WHERE d = '2009-04-03' And k = -7",
                            "UPDATE T SET a = 1.5 ,b = 'x' WHERE d = '2009-04-03' And k = -7 ",
                            "UPDATE T SET a = 1.5 ,b = 'x' WHERE d = '2009-04-03' And k = -", ""}) {
    EXPECT_FALSE(next.read_as(known, other)) << other;
  }
}

}  // namespace
}  // namespace posto::tsql
