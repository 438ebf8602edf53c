// Eight processes on one database at once, each for POSTO_TEST_SECONDS (5) in a test: what they wrote is all there,
// once.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <thread>

#include "flows/conflict.h"
#include "flows/import_readings.h"
#include "flows/position.h"
#include "flows/readings.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "tests/flows/sample_station.h"
#include "tests/support/processes.h"

namespace posto::flows {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int kReadingsInFile = 5;
constexpr int kMostFuellings = 2'000'000;
constexpr std::int64_t kMillilitres = 10'000;  // of each reading

struct Nozzle {
  const char* address;
  std::int64_t initial;  // totaliser in millilitres
};
// One more importer than nozzles: two of them take in the same files.
constexpr std::array kNozzlesAtWork{Nozzle{"04", 1'284'561'327}, Nozzle{"05", 693'108'945}, Nozzle{"08", 508'214'603},
                                    Nozzle{"09", 1'736'402'771}};
constexpr int kImporters = 5, kPosters = 2, kReaders = 1;

// What the processes tell each other and the test.
struct Shared {
  std::atomic<int> imported[kImporters];  // files that were committed
  std::atomic<int> stored, conflicts, reads;
  std::atomic<std::uint8_t> posted[kMostFuellings];  // how often each fuelling was
};

class WorkstationsTest : public ::testing::Test {
 protected:
  WorkstationsTest() {
    database_.registered();
    void* memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("mmap");
    shared_ = new (memory) Shared{};
  }
  ~WorkstationsTest() override { munmap(shared_, sizeof(Shared)); }

  static std::chrono::seconds seconds() {
    const char* given = std::getenv("POSTO_TEST_SECONDS");
    return std::chrono::seconds(given != nullptr ? std::atoi(given) : 5);
  }

  // Process `n` works until the time has come; failures that a workstation may meet are counted, others end it.
  testing::ChildProcess workstation(int n, SteadyClock::time_point end) {
    return testing::ChildProcess([this, n, end] {
      Station station = database_.open();
      while (SteadyClock::now() < end) {
        try {
          n < kImporters ? import(station, n) : n < kImporters + kPosters ? post(station) : read(station);
        } catch (const Erro& failure) {
          if (failure.number() != erro::kTimeout) throw;
          ++shared_->conflicts;
        }
      }
    });
  }

  void import(Station& station, int n) {
    const Nozzle& nozzle = kNozzlesAtWork[static_cast<std::size_t>(n) % kNozzlesAtWork.size()];
    const int file = shared_->imported[n];
    std::string lines = std::string(kReadingHeader) + "\n";
    for (int i = 1; i <= kReadingsInFile; ++i) {
      const std::int64_t reading = std::int64_t{file} * kReadingsInFile + i;
      const std::int64_t totaliser = nozzle.initial + reading * kMillilitres;
      const std::int64_t second = reading % 86'400;
      lines += fmt::format("{},1,2026-11-23 {:02}:{:02}:{:02},40,10.000,6.199,61.99,{}.{:03}\n", nozzle.address,
                           second / 3600, second / 60 % 60, second % 60, totaliser / 1000, totaliser % 1000);
    }
    const ImportResult result = import_readings(station, folder_.write(fmt::format("{}.csv", n), lines));
    if (result.rejected > 0) throw std::runtime_error("a reading was rejected");
    shared_->stored += static_cast<int>(result.stored);
    ++shared_->imported[n];
  }

  // The oldest fuellings that are pending, each once: the other poster wants the same ones.
  void post(Station& station) {
    std::vector<std::int32_t> pending;
    for (auto rs = station.connection().Execute("SELECT TOP 5 Cd_Abastecimento FROM Abastecimento WHERE "
                                                "Cd_PessoaUsuaria = 1 And Ic_Baixado = 0 ORDER BY Cd_Abastecimento");
         !rs.EOF(); rs.MoveNext()) {
      pending.push_back(rs["Cd_Abastecimento"].as<std::int32_t>());
    }
    for (std::int32_t code : pending) {
      bool mine = false;
      in_transaction(station, [&] {
        DALAbastecimento fuelling(station.settings);
        fuelling.ObVO->Cd_PessoaUsuaria = station.tenant();
        fuelling.ObVO->Cd_Abastecimento = code;
        mine = !fuelling.Consultar().Ic_Baixado;
        if (mine) fuelling.BaixarAbastecimento();
      });
      if (mine) ++shared_->posted[code];
    }
    if (pending.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }

  // One statement sees one state.
  void read(Station& station) {
    const std::string same = rows_of(station.connection(), R"(
        SELECT (SELECT Count(*) FROM Abastecimento) - (SELECT Count(*) FROM Cardex WHERE No_Tipo = 20))");
    if (same != "0\n") throw std::runtime_error("a fuelling without its ledger movement: " + same);
    const Date day = Date::of_day(2026, 11, 23);
    nozzle_positions(station, day, day);
    product_positions(station, day, day);
    ++shared_->reads;
  }

  // All that is there hangs together; how many fuellings that is.
  int check() {
    Station station = database_.open();
    auto number = [&](const std::string& query) { return std::stoi(rows_of(station.connection(), query)); };
    const int fuellings = number("SELECT Count(*) FROM Abastecimento");
    EXPECT_EQ(number("SELECT Count(*) FROM Cardex WHERE No_Tipo = 20"), fuellings);
    EXPECT_EQ(number("SELECT IsNull(Max(Cd_Abastecimento), 0) FROM Abastecimento"), fuellings);
    EXPECT_EQ(number("SELECT IsNull(Max(No_Sequencial), 0) FROM SequenciadorGeral WHERE Nm_Atributo = "
                     "'Cd_Abastecimento/1'"),
              fuellings);
    const Date day = Date::of_day(2026, 11, 23);
    for (const NozzlePosition& p : nozzle_positions(station, day, day)) {
      EXPECT_NEAR(p.litres, 10.0 * p.deliveries, 0.001) << p.address;
      EXPECT_NEAR(p.difference(), 0, 0.001) << p.address;
    }
    check_balances(station);
    return fuellings;
  }

  // Positions are cut to three decimals, and the one before and the new one pass through 32 bits.
  static double tolerance(double position) { return 0.0015 + std::abs(position) / (1 << 23); }

  // A single walk of the ledger gives every position in it, and the products' stock.
  static void check_balances(Station& station) {
    std::map<std::int32_t, double> stock;
    for (auto rs = station.connection().Execute("SELECT Cd_Produto, No_Tipo, Qt_Unidade, Qt_Estoque FROM Cardex "
                                                "WHERE Cd_PessoaUsuaria = 1 ORDER BY Dt_Emissao, Cd_LancamentoCardex");
         !rs.EOF(); rs.MoveNext()) {
      const double quantity = rs["Qt_Unidade"].as<double>();
      double& position = stock[rs["Cd_Produto"].as<std::int32_t>()];
      position += rs["No_Tipo"].as<std::int32_t>() < 20 ? quantity : -quantity;
      ASSERT_NEAR(rs["Qt_Estoque"].as<double>(), position, tolerance(position));
      position = rs["Qt_Estoque"].as<double>();
    }
    for (const ProductPosition& p : product_positions(station, Date::of_day(2026, 11, 1), Date::of_day(2026, 11, 30))) {
      EXPECT_NEAR(p.stock, stock[p.code], tolerance(p.stock)) << p.name;
    }
  }

  TemporaryFolder folder_;
  StationDatabase database_;
  Shared* shared_;
};

TEST_F(WorkstationsTest, EightAtOnceLoseAndDoubleNothing) {
  const auto end = SteadyClock::now() + seconds();
  std::vector<testing::ChildProcess> processes;
  for (int n = 0; n < kImporters + kPosters + kReaders; ++n) processes.push_back(workstation(n, end));
  for (auto& process : processes) EXPECT_TRUE(process.end());

  EXPECT_EQ(check(), shared_->stored);
  EXPECT_GT(shared_->stored, 0);
  EXPECT_GT(shared_->reads, 0);
  Station station = database_.open();
  int posted = 0;
  for (auto& times : shared_->posted) {
    EXPECT_LE(times, 1);
    posted += times;
  }
  EXPECT_GT(posted, 0);
  EXPECT_EQ(rows_of(station.connection(), "SELECT Count(*) FROM Abastecimento WHERE Ic_Baixado <> 0"),
            fmt::format("{}\n", posted));
  std::cout << fmt::format("{} fuellings, {} postings, {} reports, {} conflicts in {} s\n", shared_->stored.load(),
                           posted, shared_->reads.load(), shared_->conflicts.load(), seconds().count());
}

// What was told to a caller as committed is there, and nothing by halves.
TEST_F(WorkstationsTest, AKilledProcessTakesNothingWithIt) {
  const char* given = std::getenv("POSTO_TEST_SEED");
  const auto seed = given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
  std::cout << "POSTO_TEST_SEED=" << seed << '\n';
  SCOPED_TRACE(fmt::format("POSTO_TEST_SEED={}", seed));
  std::mt19937 random(seed);
  const auto end = SteadyClock::now() + seconds();
  int kills = 0;
  while (SteadyClock::now() < end) {
    std::vector<testing::ChildProcess> processes;
    for (int n = 0; n < kImporters + kPosters; ++n) processes.push_back(workstation(n, end + std::chrono::minutes(1)));
    // On a busy machine it takes a while until they are at work.
    const auto patience = SteadyClock::now() + std::chrono::seconds(30);
    for (const int before = shared_->stored; shared_->stored == before && SteadyClock::now() < patience;) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (auto& process : processes) {
      std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution<int>(20, 200)(random)));
      process.kill();
      ++kills;
    }
    for (auto& process : processes) EXPECT_FALSE(process.end());
    const int fuellings = check();
    if (HasFailure()) return;
    EXPECT_GE(fuellings, shared_->stored);
    for (std::size_t n = 0; n < kNozzlesAtWork.size(); ++n) {
      Station station = database_.open();
      const std::string deliveries = rows_of(
          station.connection(), fmt::format("SELECT Count(*) FROM Abastecimento WHERE De_EnderecoLogicoBico = '{}'",
                                            kNozzlesAtWork[n].address));
      EXPECT_GE(std::stoi(deliveries), shared_->imported[n] * kReadingsInFile);
    }
  }
  EXPECT_GT(kills, 5);
  EXPECT_GT(shared_->stored, 0);
  std::cout << fmt::format("{} processes killed, {} fuellings\n", kills, check());
}

}  // namespace
}  // namespace posto::flows
