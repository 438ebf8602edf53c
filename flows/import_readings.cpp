#include "flows/import_readings.h"

#include <filesystem>
#include <fstream>
#include <map>

#include "flows/conflict.h"
#include "flows/readings.h"
#include "flows/sequence.h"
#include "posto/core/error_vocabulary.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/services/csv.h"
#include "posto/stock/DALCardex.h"
#include "posto/types/text.h"

namespace posto::flows {
namespace {

constexpr std::size_t kReadingsInTransaction = 500;

// The lines that were refused, written beside the input under another name first, so that a cut leaves no half file.
class RejectedFile {
 public:
  explicit RejectedFile(const std::string& input) {
    std::filesystem::path p(input);
    path_ = (p.parent_path() / (p.stem().string() + ".rejeitadas" + p.extension().string())).string();
    std::filesystem::remove(path_);
  }
  void add(std::size_t number, const Refusal& reason, const std::string& line) {
    if (!file_.is_open()) {
      file_.open(unfinished(), std::ios::binary | std::ios::trunc);
      file_ << "linha,motivo,conteudo\n";
    }
    const std::string content = is_valid_utf8(line) ? line : from_windows_1252(line);
    file_ << number << ',' << csv_field(reason) << ',' << csv_field(content) << '\n';
  }
  // The file's name, or nothing when no line was refused.
  std::string finish() {
    if (!file_.is_open()) return {};
    file_.close();
    if (!file_) throw Erro(erro::kPathFileAccess, "flows.import_readings", "Falha ao gravar " + unfinished());
    std::filesystem::rename(unfinished(), path_);
    return path_;
  }

 private:
  std::string unfinished() const { return path_ + ".parcial"; }
  std::string path_;
  std::ofstream file_;
};

// A nozzle while its readings come in.
struct Nozzle {
  VOBomba record;
  NozzleState state;
  bool moved = false;  // since its record was written
};

class Import {
 public:
  explicit Import(Station& station)
      : station_(station),
        fuelling_(station.settings),
        ledger_(station.settings),
        fuelling_numbers_(station.settings, "Cd_Abastecimento"),
        ledger_numbers_(station.settings, "Cd_LancamentoCardex") {}

  ImportResult run(const std::string& path, const ImportProgress& progress) {
    LineFile file(path);
    RejectedFile rejected(path);
    ImportResult result;
    const std::size_t total = std::filesystem::file_size(path);
    std::size_t done = 0;
    read_header(file);
    for (Group group = read_group(file); !group.empty(); group = read_group(file)) {
      Taken taken;
      in_transaction(station_, [&] { taken = take(group); });
      for (const Line& line : group) done += line.text.size() + 1;
      for (const auto& [line, reason] : taken.refused) rejected.add(line->number, reason, line->text);
      result.read += group.size();
      result.stored += taken.stored;
      result.repeated += taken.repeated;
      result.rejected += taken.refused.size();
      if (progress) progress(std::min(done, total), total);
    }
    result.rejected_file = rejected.finish();
    return result;
  }

 private:
  struct Line {
    std::size_t number;
    std::string text;
  };
  using Group = std::vector<Line>;  // the lines that share a transaction
  struct Taken {
    std::size_t stored = 0, repeated = 0;
    std::vector<std::pair<const Line*, Refusal>> refused;
  };

  static Group read_group(LineFile& file) {
    Group group;
    for (std::string text; group.size() < kReadingsInTransaction && file.next(text);) {
      group.push_back({file.number(), text});
    }
    return group;
  }

  static void read_header(LineFile& file) {
    std::string line;
    if (!file.next(line)) throw Erro(erro::kRuleViolation, "flows.import_readings", "O arquivo está vazio");
    if (line == kReadingHeader) return;
    throw Erro(erro::kRuleViolation, "flows.import_readings",
               "O arquivo não começa com o cabeçalho " + std::string(kReadingHeader));
  }

  // Another workstation may have moved nozzles and numbers since the last group, or be in the way of this one.
  Taken take(const Group& group) {
    nozzles_.clear();
    fuelling_numbers_.forget();
    ledger_numbers_.forget();
    Taken taken;
    for (const Line& line : group) {
      auto reading = parse_reading(line.text);
      auto refusal = std::get_if<Refusal>(&reading) ? std::optional(std::get<Refusal>(reading))
                                                    : take(std::get<Reading>(reading), taken);
      if (refusal) taken.refused.emplace_back(&line, *refusal);
    }
    write_nozzles();
    fuelling_numbers_.store();
    ledger_numbers_.store();
    return taken;
  }

  // Stores a reading, or tells why not.
  std::optional<Refusal> take(const Reading& reading, Taken& taken) {
    Nozzle* nozzle = nozzle_of(reading.address);
    if (nozzle == nullptr) return "bico desconhecido: " + reading.address;
    if (reading.totaliser <= nozzle->state.totaliser) {
      if (auto stored = stored_reading(reading)) {
        if (*stored != reading) return "encerrante já registrado com outros valores";
        ++taken.repeated;
        return std::nullopt;
      }
    }
    if (auto refusal = contradiction(reading, nozzle->state)) return refusal;
    store(reading, *nozzle);
    ++taken.stored;
    return std::nullopt;
  }

  // Null for an address that no nozzle has.
  Nozzle* nozzle_of(const std::string& address) {
    auto [found, is_new] = nozzles_.try_emplace(address);
    if (is_new) found->second = read_nozzle(address);
    return found->second ? &*found->second : nullptr;
  }

  std::optional<Nozzle> read_nozzle(const std::string& address) {
    DALBomba nozzle(station_.settings);
    nozzle.ObVO->Cd_PessoaUsuaria = station_.tenant();
    nozzle.ObVO->De_EnderecoLogicoBico = address;
    try {
      nozzle.Consultar();
    } catch (const Erro& failure) {
      if (failure.number() != erro::kRecordNotFound) throw;
      return std::nullopt;
    }
    const double last = nozzle.UltimoEncerranteEletronico();
    NozzleState state{.totaliser = Currency(last > 0 ? last : nozzle.ObVO->No_EncerranteInicial),
                      .last_end = nozzle.DataUltimoAbastecimento()};
    return Nozzle{.record = *nozzle.ObVO, .state = state};
  }

  // The stored fuelling of the same nozzle and totaliser. The key of the class would compare a single decimal.
  std::optional<Reading> stored_reading(const Reading& reading) {
    Recordset rows = station_.connection().Execute(sql(R"(
        SELECT   No_Contador, Dt_Termino, Qt_TempoSegundos, Qt_Litros, Vl_Preco, Vl_Total
        FROM     Abastecimento
        WHERE    Cd_PessoaUsuaria = {} And
                 De_EnderecoLogicoBico = '{}' And
                 No_EncerranteFechamento = {})",
                                                       station_.tenant(), reading.address,
                                                       DoubleToSql(reading.totaliser.as_double(), 8)));
    if (rows.EOF()) return std::nullopt;
    Reading stored = reading;
    stored.counter = rows["No_Contador"].value_or(std::int16_t{0});
    stored.end = rows["Dt_Termino"].value_or(Date());
    stored.seconds = rows["Qt_TempoSegundos"].value_or(std::int16_t{0});
    const bool same_litres = rows["Qt_Litros"].value_or(0.0f) == static_cast<float>(reading.litres.as_double());
    if (!same_litres) stored.litres = Currency(static_cast<double>(rows["Qt_Litros"].value_or(0.0f)));
    stored.price = rows["Vl_Preco"].value_or(Currency());
    stored.total = rows["Vl_Total"].value_or(Currency());
    return stored;
  }

  void store(const Reading& reading, Nozzle& nozzle) {
    store_fuelling(reading, nozzle.record);
    store_movement(reading, nozzle.record);
    nozzle.state = {.totaliser = reading.totaliser, .last_end = reading.end};
    nozzle.moved = true;
  }

  void store_fuelling(const Reading& reading, const VOBomba& nozzle) {
    VOAbastecimento& vo = *fuelling_.ObVO;
    vo.RestaurarDefault();
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Cd_Abastecimento = fuelling_numbers_.next();
    vo.Tp_OrigemRegistro = Tp_OrigemRegistroAutomacao;
    vo.No_Contador = reading.counter;
    vo.Dt_Termino = reading.end;
    vo.Qt_TempoSegundos = reading.seconds;
    vo.Qt_Litros = vo.Qt_LitrosAutomacao = static_cast<float>(reading.litres.as_double());
    vo.Vl_Preco = reading.price;
    vo.Vl_Total = reading.total;
    vo.De_EnderecoLogicoBico = reading.address;
    vo.No_EncerranteFechamento = reading.totaliser.as_double();
    vo.Cd_Caixa = nozzle.Cd_Caixa;
    vo.Fl_TipoPedidoFeitoAutomacao = Fl_FoiPedidoOProximo;
    fuelling_.Incluir();
  }

  void store_movement(const Reading& reading, const VOBomba& nozzle) {
    VOCardex& vo = *ledger_.ObVO;
    vo.RestaurarDefault();
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Dt_Emissao = reading.end.day();
    vo.Nm_Doc = "AB " + std::to_string(fuelling_.ObVO->Cd_Abastecimento);
    vo.No_Tipo = SaidaVendas;
    vo.Qt_Unidade = reading.litres.as_double();
    vo.Vl_Unitario = reading.price.as_double();
    vo.Cd_SisTubulacao = nozzle.Cd_SisTubulacao;
    vo.Cd_Produto = nozzle.Cd_Produto;
    ledger_.AtualizarEstoqueProduto(vo, Tp_EdicaoInclusao, false);
    vo.Cd_LancamentoCardex = ledger_numbers_.next();
    ledger_.Incluir();
  }

  // The nozzles' last totalisers, once a transaction.
  void write_nozzles() {
    for (auto& [address, nozzle] : nozzles_) {
      if (!nozzle || !nozzle->moved) continue;
      DALBomba bomba(station_.settings);
      bomba.ObVO->Cd_PessoaUsuaria = station_.tenant();
      bomba.ObVO->Cd_Bomba = nozzle->record.Cd_Bomba;
      bomba.Consultar();
      bomba.ObVO->No_UltEncerrante = bomba.ObVO->No_UltEncerranteAutomacao = nozzle->state.totaliser.as_double();
      bomba.Alterar();
      nozzle->moved = false;
    }
  }

  Station& station_;
  DALAbastecimento fuelling_;
  DALCardex ledger_;
  Sequence fuelling_numbers_, ledger_numbers_;
  std::map<std::string, std::optional<Nozzle>> nozzles_;
};

}  // namespace

ImportResult import_readings(Station& station, const std::string& path, const ImportProgress& progress) {
  return Import(station).run(path, progress);
}

}  // namespace posto::flows
