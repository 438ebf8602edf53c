#include "flows/registration.h"

#include <algorithm>
#include <filesystem>

#include "flows/csv_table.h"
#include "flows/lookup.h"
#include "flows/records.h"
#include "flows/sequence.h"
#include "posto/core/error_vocabulary.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/forecourt/catalogue.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/masterdata/catalogue.h"
#include "posto/stock/DALCardex.h"
#include "posto/stock/DALProduto.h"

namespace posto::flows {
namespace {

constexpr std::int32_t kMostByte = 255;

class Registration {
 public:
  Registration(Station& station, const std::string& folder) : station_(station), folder_(folder) {}

  std::vector<Registered> run() {
    Transaction transaction(station_.settings->ObConnection);
    file("empresa.csv", {"nome", "corte"}, &Registration::company);
    if (station_.tenant() == 0) fail("Falta a empresa usuária: empresa.csv");
    file("grupos.csv", {"nome"}, &Registration::group);
    file("produtos.csv", {"codigo_barras", "nome", "grupo", "tipo", "combustivel", "preco", "unidade"},
         &Registration::product);
    file("tubulacoes.csv", {"tubulacao", "produto"}, &Registration::piping);
    file("bicos.csv", {"bico", "endereco", "produto", "tubulacao", "encerrante_inicial", "bomba", "descricao"},
         &Registration::nozzle);
    file("compras.csv", {"data", "documento", "produto", "quantidade", "custo_unitario", "aliquota_icms"},
         &Registration::purchases);
    for (const RecordKind& kind : record_kinds()) records(kind);
    const bool any = std::any_of(result_.begin(), result_.end(), [](const Registered& r) { return r.found; });
    if (!any) fail("A pasta " + folder_ + " não tem nenhum dos arquivos do cadastro");
    transaction.commit();
    return std::move(result_);
  }

 private:
  [[noreturn]] static void fail(const std::string& what) {
    throw Erro(erro::kRuleViolation, "flows.register_station", what);
  }

  // `take` registers the row on which a table stands and tells whether it is new.
  void file(const char* name, std::initializer_list<std::string_view> columns,
            bool (Registration::*take)(const CsvTable&)) {
    Registered r{.file = name};
    const std::string path = (std::filesystem::path(folder_) / name).string();
    r.found = std::filesystem::exists(path);
    if (r.found) {
      CsvTable rows(path, columns);
      while (rows.next()) (this->*take)(rows) ? ++r.added : ++r.changed;
    }
    result_.push_back(std::move(r));
  }

  // Of a kind that is not in the folder nothing is told.
  void records(const RecordKind& kind) {
    Registered r{.file = std::string(kind.table) + ".csv", .found = true};
    const std::filesystem::path path = std::filesystem::path(folder_) / r.file;
    if (!std::filesystem::exists(path)) return;
    CsvTable rows(path.string());
    while (rows.next()) kind.take(station_, rows) ? ++r.added : ++r.changed;
    result_.push_back(std::move(r));
  }

  bool company(const CsvTable& row) {
    DALEmpresaUsuaria company(station_.settings);
    const bool is_new = station_.tenant() == 0;
    company.ObVO->Cd_PessoaUsuaria = station_.tenant();
    if (!is_new) company.Consultar();
    company.ObVO->Nm_Pessoa = row.required("nome", 50);
    company.ObVO->No_TipoPessoa = Tp_PessoaJuridica;
    company.ObVO->Dt_CorteMovimento = row.day("corte");
    is_new ? company.Incluir() : company.Alterar();
    read_company(*station_.settings, company.ObVO->Cd_PessoaUsuaria);
    return is_new;
  }

  // The code of a group by its name; 0 when there is none.
  std::int32_t group_code(const std::string& name) {
    Recordset rows = station_.connection().Execute(
        sql("SELECT Cd_GrupoProduto FROM GrupoProduto WHERE Nm_GrupoProduto = {}", text_literal(name)));
    return rows.EOF() ? 0 : rows["Cd_GrupoProduto"].as<std::int32_t>();
  }

  // The library's literal routines never escape: who brings a text from outside doubles its quotes.
  static std::string text_literal(const std::string& text) {
    std::string literal = "'";
    for (char c : text) literal.append(c == '\'' ? 2 : 1, c);
    return literal + "'";
  }

  bool group(const CsvTable& row) {
    const std::string& name = row.required("nome", 60);
    if (group_code(name) != 0) return false;
    DALGrupoProduto group(station_.settings);
    group.ObVO->Nm_GrupoProduto = name;
    group.Incluir();
    return true;
  }

  bool product(const CsvTable& row) {
    DALProduto product(station_.settings);
    product.ObVO->Cd_CodBarras = row.required("codigo_barras", 20);
    bool is_new = !stands([&] { product.Consultar(false, false); });
    VOProduto& vo = *product.ObVO;
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Nm_Produto = row.required("nome", 100);
    vo.Cd_GrupoProduto = group_code(row.required("grupo", 60));
    if (vo.Cd_GrupoProduto == 0) row.fail("grupo desconhecido: " + row.text("grupo"));
    vo.No_Tipo = static_cast<std::uint8_t>(row.integer("tipo", 1, 2));
    vo.Fl_VendBomba = row.yes("combustivel");
    vo.Vl_Preco = row.decimal("preco");
    vo.Cd_Unidade = row.required("unidade", 6);
    is_new ? product.Incluir() : product.Alterar();
    return is_new;
  }

  std::int32_t product_of(const CsvTable& row) {
    const std::int32_t code = flows::product_of(station_, row.required("produto", 20));
    if (code == 0) row.fail("produto desconhecido: " + row.text("produto"));
    return code;
  }

  bool piping(const CsvTable& row) {
    DALSisTubulacao piping(station_.settings);
    piping.ObVO->Cd_PessoaUsuaria = station_.tenant();
    piping.ObVO->Cd_SisTubulacao = static_cast<std::uint8_t>(row.integer("tubulacao", 1, kMostByte));
    bool is_new = !stands([&] { piping.Consultar(); });
    piping.ObVO->Cd_Produto = product_of(row);
    is_new ? piping.Incluir() : piping.Alterar();
    return is_new;
  }

  bool nozzle(const CsvTable& row) {
    DALBomba nozzle(station_.settings);
    VOBomba& vo = *nozzle.ObVO;
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Cd_Bomba = static_cast<std::uint8_t>(row.integer("bico", 1, kMostByte));
    bool is_new = !stands([&] { nozzle.Consultar(); });
    vo.De_EnderecoLogicoBico = row.required("endereco", 2);
    vo.Cd_Produto = product_of(row);
    vo.Cd_SisTubulacao = static_cast<std::uint8_t>(row.integer("tubulacao", 1, kMostByte));
    vo.No_EncerranteInicial = row.figure("encerrante_inicial");
    vo.Ds_Bomba = row.required("bomba", 40);
    vo.Ds_Bico = row.required("descricao", 40);
    if (is_new) vo.No_UltEncerrante = vo.No_UltEncerranteAutomacao = vo.No_EncerranteInicial;
    is_new ? nozzle.Incluir() : nozzle.Alterar();
    return is_new;
  }

  bool purchases(const CsvTable& row) {
    DALCardex ledger(station_.settings);
    VOCardex& vo = *ledger.ObVO;
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Cd_Produto = product_of(row);
    vo.Dt_Emissao = row.day("data");
    vo.Nm_Doc = row.required("documento", 13);
    if (vo.Nm_Doc.find('\'') != std::string::npos) row.fail("documento com apóstrofo: " + vo.Nm_Doc);
    vo.No_Tipo = EntradaCompras;
    vo.Qt_Unidade = row.figure("quantidade");
    vo.Vl_Unitario = row.figure("custo_unitario");
    vo.Tx_Icms = row.decimal("aliquota_icms");
    if (vo.Qt_Unidade <= 0) row.fail("quantidade não positiva");
    if (is_in_ledger(vo)) return false;
    ledger.AtualizarEstoqueProduto(vo, Tp_EdicaoInclusao, false);
    Sequence numbers(station_.settings, "Cd_LancamentoCardex");
    vo.Cd_LancamentoCardex = numbers.next();
    ledger.Incluir();
    numbers.store();
    return true;
  }

  bool is_in_ledger(const VOCardex& vo) {
    Recordset rows = station_.connection().Execute(sql(R"(
        SELECT   TOP 1 Cd_LancamentoCardex
        FROM     Cardex
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_Produto = {} And
                 Dt_Emissao = {} And
                 No_Tipo = {} And
                 Nm_Doc = {})",
                                                       vo.Cd_PessoaUsuaria, vo.Cd_Produto,
                                                       DateSemHoraToSql(vo.Dt_Emissao, *station_.settings),
                                                       static_cast<std::int32_t>(vo.No_Tipo), text_literal(vo.Nm_Doc)));
    return !rows.EOF();
  }

  Station& station_;
  std::string folder_;
  std::vector<Registered> result_;
};

}  // namespace

std::vector<Registered> register_station(Station& station, const std::string& folder) {
  return Registration(station, folder).run();
}

}  // namespace posto::flows
