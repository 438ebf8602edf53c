// The user company's reports on products, nozzles and stock.
#include <algorithm>

#include "posto/core/sql.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/types/text.h"

namespace posto {
namespace {

// Raises the time that a statement may take, and puts it back to what is usual however it ends.
class LongStatement {
 public:
  explicit LongStatement(Connection& connection) : connection_(connection) { connection_.CommandTimeout = kLong; }
  ~LongStatement() { connection_.CommandTimeout = kUsual; }
  LongStatement(const LongStatement&) = delete;
  LongStatement& operator=(const LongStatement&) = delete;

 private:
  static constexpr std::int32_t kLong = 120, kUsual = 30;  // seconds
  Connection& connection_;
};

// A figure of product A behind its last movement up to a day, otherwise its opening figure.
std::string figure_at(std::string_view column, std::string_view opening, std::string_view day) {
  return sql(R"(
      IsNull((SELECT   TOP 1 {}
                       FROM     Cardex
                       WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                Cd_Produto = A.Cd_Produto And
                                Dt_Emissao <= {}
                       ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc), IsNull(A.{}, 0)))",
             column, day, opening);
}

// The totaliser of nozzle A behind its last delivery that ended before a moment ("<") or up to it ("<="), otherwise
// where the station began.
std::string totaliser(std::string_view bound, std::string_view moment) {
  return sql(R"(
      IsNull((SELECT   TOP 1 No_EncerranteFechamento
                       FROM     Abastecimento
                       WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                                Dt_Termino {} '{}'
                       ORDER BY Dt_Termino Desc, No_Contador Desc, Cd_Abastecimento Desc),
             IsNull(A.No_EncerranteInicial, 0)))",
             bound, moment);
}

// A sum over the deliveries of nozzle A in a period; of calibrations, or of the others.
std::string sum_of_deliveries(std::string_view column, std::string_view period, int calibration) {
  return sql(R"(
      IsNull((SELECT Sum({})
                     FROM   Abastecimento
                     WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                            De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                            Dt_Termino Between {} And
                            Ic_Afericao = {}), 0))",
             column, period, calibration);
}

}  // namespace

Recordset DALEmpresaUsuaria::rsBombas() {
  return routine("rsBombas", [&] {
    return detached(sql(R"(
        SELECT   Bomba.Cd_Bomba, Bomba.Ds_Bomba, Bomba.Ds_Bico, Bomba.De_EnderecoLogicoBico, Bomba.Cd_Produto,
                 Produto.Nm_Produto, Produto.Vl_Preco, Bomba.Cd_SisTubulacao, SisTubulacao.Nm_SisTubulacao,
                 Bomba.No_UltEncerrante, Bomba.De_Status, Bomba.Fl_BloquearBico
        FROM     Bomba
                 LEFT JOIN Produto On Bomba.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                                      Bomba.Cd_Produto = Produto.Cd_Produto
                 LEFT JOIN SisTubulacao On Bomba.Cd_PessoaUsuaria = SisTubulacao.Cd_PessoaUsuaria And
                                           Bomba.Cd_SisTubulacao = SisTubulacao.Cd_SisTubulacao
        WHERE    Bomba.Cd_PessoaUsuaria = {}
        ORDER BY Bomba.Cd_Bomba)",
                        company()));
  });
}

Recordset DALEmpresaUsuaria::rsEstoque(Date Dt_Movimento) {
  return routine("rsEstoque", [&] {
    const std::string quantity = figure_at("Qt_Estoque", "Qt_EstoqueInicial", day(Dt_Movimento));
    const std::string cost = figure_at("Vl_CustoMedio", "Vl_CustoMedioInicial", day(Dt_Movimento));
    LongStatement under_way(connection());
    return detached(sql(R"(
        SELECT   B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto, A.Cd_Unidade,
                 {} As Qt_Estoque,
                 {} As Vl_CustoMedio,
                 Round({} * {}, 2) As Vl_Total
        FROM     Produto A
                 LEFT JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.No_Tipo = 1
        ORDER BY B.Nm_GrupoProduto, A.Nm_Produto)",
                        quantity, cost, quantity, cost, company()));
  });
}

Recordset DALEmpresaUsuaria::rsEstoqueAtual(bool Ic_IncluirEstoqueNegativo, bool Ic_IncluirEstoquePositivo,
                                            bool Ic_IncluirEstoqueIgualZero) {
  return routine("rsEstoqueAtual", [&] {
    std::string chosen;
    auto choose = [&](bool include, std::string_view comparison) {
      if (!include) return;
      chosen += chosen.empty() ? "IsNull(A.Qt_Estoque, 0) " : " Or IsNull(A.Qt_Estoque, 0) ";
      chosen += comparison;
    };
    choose(Ic_IncluirEstoqueNegativo, "< 0");
    choose(Ic_IncluirEstoquePositivo, "> 0");
    choose(Ic_IncluirEstoqueIgualZero, "= 0");
    if (chosen.empty()) chosen = "A.Qt_Estoque = Null";
    return detached(sql(R"(
        SELECT   B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto, A.Cd_Unidade, IsNull(A.Qt_Estoque, 0) As Qt_Estoque,
                 IsNull(A.Vl_CustoMedio, 0) As Vl_CustoMedio, A.Vl_Preco,
                 Round(IsNull(A.Qt_Estoque, 0) * IsNull(A.Vl_CustoMedio, 0), 2) As Vl_Total
        FROM     Produto A
                 LEFT JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.No_Tipo = 1 And
                 ({})
        ORDER BY B.Nm_GrupoProduto, A.Nm_Produto)",
                        company(), chosen));
  });
}

Recordset DALEmpresaUsuaria::rsTransferenciaEntrada() {
  return routine("rsTransferenciaEntrada", [&] {
    return detached(sql(R"(
        SELECT   A.Cd_ProdutoEntrada, C.Nm_Produto As Nm_ProdutoEntrada, A.Qt_UnidadeEntrada,
                 C.Qt_Estoque As Qt_EstoqueEntrada, A.Cd_ProdutoBaixa, B.Nm_Produto As Nm_ProdutoBaixa,
                 A.Qt_UnidadeBaixa, B.Qt_Estoque As Qt_EstoqueBaixa, A.Ic_TransferenciaAutomatica
        FROM     ProdutoTransferencia A
                 INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_ProdutoBaixa = B.Cd_Produto
                 INNER JOIN Produto C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And A.Cd_ProdutoEntrada = C.Cd_Produto
        WHERE    A.Cd_PessoaUsuaria = {}
        ORDER BY C.Nm_Produto, B.Nm_Produto)",
                        company()));
  });
}

Recordset DALEmpresaUsuaria::rsMargemContribuicaoPorProdutoEDia(Date Dt_Inicial, Date Dt_Final,
                                                                bool Ic_SomenteCombustiveis) {
  return routine("rsMargemContribuicaoPorProdutoEDia", [&] {
    constexpr std::string_view kSale = "Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2))";
    constexpr std::string_view kCost = "Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2))";
    return detached(sql(R"(
        SELECT   A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto, Sum(A.Qt_Unidade) As Qt_Vendida,
                 Round({}, 2) As Vl_Venda,
                 Round({}, 2) As Vl_Custo,
                 Round({} - {}, 2) As Vl_Margem,
                 Case When {} = 0 Then 0
                      Else Round(({} - {}) * 100 / {}, 2) End As Pc_Margem
        FROM     Cardex A
                 INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.No_Tipo = 20 And
                 A.Dt_Emissao Between {}{}
        GROUP BY A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto
        ORDER BY A.Dt_Emissao, B.Nm_Produto, A.Cd_Produto)",
                        kSale, kCost, kSale, kCost, kSale, kSale, kCost, kSale, company(), days(Dt_Inicial, Dt_Final),
                        Ic_SomenteCombustiveis ? " And\r         B.Fl_VendBomba <> 0" : ""));
  });
}

Recordset DALEmpresaUsuaria::rsEncerranteInicialFinalEVenda(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsEncerranteInicialFinalEVenda", [&] {
    const std::string period = moments(Dt_Inicial, Dt_Final);
    const std::string begin = format_date(Dt_Inicial, ObVOSistema->Ds_FormatoData) + " 00:00:00";
    const std::string end = format_date(Dt_Final, ObVOSistema->Ds_FormatoData) + " 23:59:59";
    return detached(sql(R"(
        SELECT   A.Cd_Bomba, A.De_EnderecoLogicoBico, A.Ds_Bico, A.Cd_Produto, B.Nm_Produto,
                 {} As No_EncerranteInicial,
                 {} As No_EncerranteFinal,
                 Round({}, 3) As Qt_Venda,
                 Round({}, 3) As Qt_Afericao,
                 {} As Vl_Venda
        FROM     Bomba A
                 LEFT JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
        WHERE    A.Cd_PessoaUsuaria = {}
        ORDER BY A.Cd_Bomba)",
                        totaliser("<", begin), totaliser("<=", end), sum_of_deliveries("Qt_Litros", period, 0),
                        sum_of_deliveries("Qt_Litros", period, 1), sum_of_deliveries("Vl_Total", period, 0),
                        company()));
  });
}

Recordset DALEmpresaUsuaria::rsEtiquetaProdutos(std::string_view Produtos) {
  return routine("rsEtiquetaProdutos", [&] {
    return detached(sql(R"(
        SELECT   Cd_Produto, Nm_Produto, Cd_CodBarras, Cd_Unidade, Vl_Preco
        FROM     Produto
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_Produto In ({})
        ORDER BY Nm_Produto)",
                        company(), trim(Produtos).empty() ? "Null" : Produtos));
  });
}

Recordset DALEmpresaUsuaria::rsConciliacaoEstoqueSisTubulacao(Date Dt_Conciliacao) {
  return routine("rsConciliacaoEstoqueSisTubulacao", [&] {
    return detached(sql(R"(
        SELECT   A.Dt_Conciliacao, A.Cd_SisTubulacao, B.Nm_SisTubulacao, B.Cd_Produto, C.Nm_Produto,
                 A.Qt_EstoqueSistema, A.Qt_EstoqueFisico, A.Qt_Diferenca, A.Ds_Observacao
        FROM     ConciliacaoEstoqueSisTubulacao A
                 LEFT JOIN SisTubulacao B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                             A.Cd_SisTubulacao = B.Cd_SisTubulacao
                 LEFT JOIN Produto C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Produto = C.Cd_Produto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Dt_Conciliacao Between {}
        ORDER BY A.Dt_Conciliacao, A.Cd_SisTubulacao)",
                        company(), moments(Dt_Conciliacao, Dt_Conciliacao)));
  });
}

}  // namespace posto
