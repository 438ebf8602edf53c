// Text that nobody would write: it is run or refused, soon, and the engine goes on.
#include <gtest/gtest.h>

#include "posto/engines/engine.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

std::string repeated(std::string_view text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

struct Hostile {
  const char* name;
  std::string batch;
  bool refused = true;
};

TEST(HostileText, IsRunOrRefusedSoon) {
  constexpr std::size_t kMany = 100'000;
  const std::string bombs = "SELECT Cd_Bomba FROM Bomba WHERE ";
  const Hostile cases[] = {
      {"parentheses", "SELECT " + repeated("(", kMany)},
      {"closed parentheses", "SELECT " + repeated("(", 40) + "1" + repeated(")", 40), false},
      {"negations", bombs + repeated("NOT ", kMany) + "1 = 1"},
      {"some negations", bombs + repeated("NOT ", 60) + "1 = 1"},
      {"signs", "SELECT " + repeated("- ", kMany) + "1"},
      {"plus signs", "SELECT " + repeated("+", kMany) + "1"},
      {"a sum", "SELECT 1" + repeated("+1", kMany)},
      {"a product", "SELECT 1" + repeated("*1", kMany)},
      {"some divisions", "SELECT 1" + repeated("/1", 300)},
      {"alternatives", bombs + "1=2" + repeated(" OR 1=2", kMany)},
      {"alternatives that fit", bombs + "1=2" + repeated(" OR 1=2", 300), false},
      {"a list", bombs + "Cd_Bomba In (1" + repeated(",2", kMany) + ")", false},
      {"a list beyond measure", bombs + "Cd_Bomba In (1" + repeated(",2", 300'000) + ")"},
      {"columns", "SELECT 1" + repeated(",1", kMany)},
      {"tables", "SELECT 1 FROM Bomba A0" + repeated(", Bomba", kMany)},
      {"joins", "SELECT 1 FROM Bomba" + repeated(" CROSS JOIN Banco", kMany)},
      {"unions", "SELECT 1" + repeated(" UNION ALL SELECT 1", 5'000)},
      {"subqueries", repeated("SELECT (", kMany)},
      {"subqueries that end", repeated("SELECT (", 60) + "SELECT 1" + repeated(")", 60)},
      {"cases", "SELECT " + repeated("CASE WHEN 1=1 THEN ", kMany)},
      {"branches", "SELECT CASE" + repeated(" WHEN 1=2 THEN 1", 5'000) + " END", false},
      {"casts", "SELECT " + repeated("Cast(", kMany)},
      {"joins in parentheses", "SELECT 1 FROM " + repeated("(", kMany) + "Bomba"},
      {"statements", repeated("SELECT 1;", 20'000), false},
      {"semicolons", repeated(";", kMany)},
      {"a comment", "SELECT 1 --" + repeated("-", kMany), false},
      {"a long text", "SELECT '" + repeated("''", kMany) + "'", false},
      {"a long name", "SELECT " + repeated("x", kMany) + " FROM Bomba"},
      {"a long number", "SELECT " + repeated("9", kMany)},
      {"a great exponent", "SELECT 1e999999999"},
      {"nothing", ""},
      {"a zero byte", std::string("SELECT\0 1", 9)},
      {"a zero byte in a text", std::string("SELECT 'a\0b'", 12), false},
      {"the mark of a literal", "SELECT \x01"},
      {"the mark of a literal in a name", "SELECT 1 As [\x01\x02]", false},
      {"bytes that are no characters", "SELECT '\xff\xc3'", false},
      {"a name of such bytes", "SELECT \xff\xfe FROM Bomba"},
      {"a pattern", "SELECT 1 FROM Bomba WHERE '" + repeated("a", 2'000) + "' Like '" + repeated("%a", 50) + "%b'",
       false},
      {"a substring", "SELECT Substring('abc', -2147483647, 2147483647)", false},
      {"products of great numbers", "SELECT Substring('abc', 2147483647 * 2147483647, 2147483647 * 2147483647)", false},
      {"the least number divided", "SELECT ((-2147483647 - 1) * 2147483647 * 2) / -1"},
  };
  auto engine = create_database(":memory:", 1);
  engine->execute("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico) Values (1, 1, 'A1')");
  for (const Hostile& c : cases) {
    SCOPED_TRACE(c.name);
    auto started = std::chrono::steady_clock::now();
    try {
      Outcome outcome = engine->execute(c.batch);
      std::vector<Cell> row(outcome.cursor ? outcome.cursor->shape().columns().size() : 0);
      while (outcome.cursor && outcome.cursor->next(row)) continue;
      EXPECT_FALSE(c.refused);
    } catch (const Erro& e) {
      EXPECT_TRUE(c.refused) << e.what();
      EXPECT_TRUE(e.number() == erro::kSyntax || e.number() == erro::kDataOverflow) << e.what();
      EXPECT_LT(e.description().size(), 1000u);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5));
  }
}

}  // namespace
}  // namespace posto
