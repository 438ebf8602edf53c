#include "flows/readings.h"

#include <gtest/gtest.h>

namespace posto::flows {
namespace {

constexpr const char* kGood = "04,17,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672";

Refusal refusal_of(const std::string& line) {
  auto reading = parse_reading(line);
  auto* refusal = std::get_if<Refusal>(&reading);
  return refusal != nullptr ? *refusal : "";
}

TEST(Readings, AGoodLineKeepsEveryDigit) {
  auto reading = std::get<Reading>(parse_reading(kGood));
  EXPECT_EQ(reading.address, "04");
  EXPECT_EQ(reading.counter, 17);
  EXPECT_EQ(reading.end, Date::of_moment(2026, 11, 23, 6, 12, 40));
  EXPECT_EQ(reading.seconds, 95);
  EXPECT_EQ(reading.litres, Currency::of_scaled(213'450));
  EXPECT_EQ(reading.price, Currency::of_scaled(61'990));
  EXPECT_EQ(reading.total, Currency::of_scaled(1'323'200));
  EXPECT_EQ(reading.totaliser, Currency::of_scaled(12'845'826'720));
}

TEST(Readings, ABadLineSaysWhatIsWrong) {
  struct {
    const char* line;
    const char* reason;
  } cases[] = {
      {"04,17,2026-11-23 06:12:40,95,21.345,6.199,132.32", "número de campos: 7 em lugar de 8"},
      {"", "número de campos: 1"},
      {"\xA0,17,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672", "codificação inválida"},
      {"04,17,2026-02-30 12:00:00,95,21.345,6.199,132.32,1284582.672", "data inválida: '2026-02-30 12:00:00'"},
      {"04,17,2026-11-23,95,21.345,6.199,132.32,1284582.672", "data inválida"},
      {"04,17,2026-11-23 06:12:40,95,vinte,6.199,132.32,1284582.672", "litros inválidos: 'vinte'"},
      {"04,17,2026-11-23 06:12:40,95,1e2,6.199,132.32,1284582.672", "litros inválidos"},
      {"04,17,2026-11-23 06:12:40,95,21,345,6.199,132.32,1284582.672", "número de campos: 9"},
      {"04,17,2026-11-23 06:12:40,95,0.000,6.199,0.00,1284582.672", "litros não positivos"},
      {"04,17,2026-11-23 06:12:40,95,21.345,-6.199,132.32,1284582.672", "preço não positivo"},
      {"04,17,2026-11-23 06:12:40,95,21.345,6.199,132.33,1284582.672", "total não confere"},  // 132.317655
      {"04,17,2026-11-23 06:12:40,95,21.345,6.199,132.31,1284582.672", ""},                   // cut and not rounded
      {"04,99999,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672", "contador inválido: '99999'"},
      {"04,17,2026-11-23 06:12:40,-1,21.345,6.199,132.32,1284582.672", "duração negativa"},
      {"0';,17,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672", "bico inválido"},
      {"'a,17,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672", "bico inválido"},
      {"\"04,17,2026-11-23 06:12:40,95,21.345,6.199,132.32,1284582.672", "aspas sem par"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    const Refusal refusal = refusal_of(c.line);
    EXPECT_EQ(refusal.substr(0, std::string(c.reason).size()), c.reason);
    EXPECT_EQ(refusal.empty(), std::string(c.reason).empty());
  }
}

TEST(Readings, FollowsTheNozzlesLastDelivery) {
  const Currency litre = Currency(1);
  auto reading = std::get<Reading>(parse_reading(kGood));
  const Currency before = reading.totaliser - reading.litres;
  const Date earlier = reading.end.plus_millis(-1000);
  EXPECT_EQ(contradiction(reading, {before, earlier}), std::nullopt);
  EXPECT_EQ(contradiction(reading, {before, reading.end}), std::nullopt);
  EXPECT_EQ(contradiction(reading, {before, {}}), std::nullopt);
  EXPECT_EQ(contradiction(reading, {before - litre, earlier})->substr(0, 20), "encerrante com salto");
  EXPECT_EQ(contradiction(reading, {before + litre, earlier})->substr(0, 20), "encerrante sobrepõe");
  EXPECT_EQ(contradiction(reading, {reading.totaliser, earlier})->substr(0, 16), "encerrante recua");
  EXPECT_EQ(contradiction(reading, {reading.totaliser + litre, earlier})->substr(0, 16), "encerrante recua");
  EXPECT_EQ(contradiction(reading, {before, reading.end.plus_millis(1000)})->substr(0, 8), "término");
  // a tenth of a millilitre is a gap as well
  EXPECT_TRUE(contradiction(reading, {before - Currency::of_scaled(1), earlier}));
}

}  // namespace
}  // namespace posto::flows
