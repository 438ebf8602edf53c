// The summary of a cash shift: 23 statements, each of which lets the server add one line, or a group's, to the work
// table. The table is filled by position: where a column's name in a statement is wrong, it has always been so.
#include <fmt/format.h>

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/treasury/DALCaixa.h"

namespace posto {
namespace {

// The captions of the name and of the three values.
struct Heads {
  const char* name;
  const char* values[3];
  const char* last_as = "Label4";
};

struct Line {
  Heads heads;
  const char* group;  // a code whose whole part is the item that the group details, 0 for the totals
  const char* group_name;
  const char* item;                           // an expression, as the following
  const char* name;                           // what the row is called
  const char* values;                         // Valor1 and Valor2
  std::string (*rest)(const VOCaixa& shift);  // Valor3 and what it is read from
};

constexpr Heads kResult{"DESCRIÇÃO", {" - ", " - ", "VALOR"}};
constexpr Heads kDebits{"DESCRIÇÃO", {" - ", " - ", "DÉBITOS"}};
constexpr Heads kDebitsAsLabel3{"DESCRIÇÃO", {" - ", " - ", "DÉBITOS"}, "Label3"};
constexpr Heads kCredits{"DESCRIÇÃO", {" - ", " - ", "CRÉDITOS"}};
constexpr Heads kCreditsAsLabel3{"DESCRIÇÃO", {" - ", " - ", "CRÉDITOS"}, "Label3"};
constexpr Heads kDivergences{"DESCRIÇÃO", {"-", "-", "VALOR"}};
constexpr const char* kNone = "NULL As Valor1, NULL As Valor2";

// A figure of the settlement as it stands in the value object.
std::string settled(Currency figure) { return MoneyToSql(figure, 2) + " As Valor3"; }

// Sales of a kind, each line rounded by the server; without a word of the company.
std::string sales(const VOCaixa& shift, std::string_view remark, std::string_view kind) {
  return sql(R"(
      IsNull(Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)),0) As Valor3 -- {}
      FROM ItemCupomFiscal
      INNER JOIN CupomFiscal On ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
      And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
      And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
      LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
      WHERE CupomFiscal.Cd_Caixa = {}
      And {}
      And CupomFiscal.Ic_Excluido = 0
      And ItemCupomFiscal.Ic_Excluido = 0)",
             remark, shift.Cd_Caixa, kind);
}

// Sales that are not of a pump, by group of products: No_Tipo 1 goods, 2 services.
std::string sales_by_group(const VOCaixa& shift, int kind) {
  return sql(R"(
      Sum(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda) As Valor3
      FROM ItemCupomFiscal
      INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
      And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
      And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
      And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
      INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
      INNER JOIN PonVen On ItemCupomFiscal.Cd_PessoaUsuaria = PonVen.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_PonVen = PonVen.Cd_PonVen
      INNER JOIN GrupoProduto On Produto.Cd_GrupoProduto = GrupoProduto.Cd_GrupoProduto
      WHERE CupomFiscal.Cd_Caixa = {}
      And Produto.Fl_VendBomba = 0
      And Produto.No_Tipo = {}
      And CupomFiscal.Ic_Excluido = 0
      And ItemCupomFiscal.Ic_Excluido = 0
      GROUP BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto, Produto.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda
      ORDER BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto)",
             shift.Cd_Caixa, kind);
}
constexpr const char* kNameByGroup =
    "Substring(RTrim(GrupoProduto.Nm_GrupoProduto) + ' - ' + RTrim(Produto.Nm_Produto) + ' - ' + "
    "Rtrim(Convert(Char,Produto.Cd_Produto)),1,80)";
constexpr const char* kValuesByGroup =
    "Sum(ItemCupomFiscal.Qt_Unidade) As Valor1, ItemCupomFiscal.Vl_UnitVenda As Valor2";

// Divergences of a nature: 1 credit, 2 debit.
std::string divergences(const VOCaixa& shift, int nature) {
  return sql(R"(
      Vl_Divergencia As Valor3
      FROM DivergenciaCaixa
      INNER JOIN TipoDivergenciaCaixa On DivergenciaCaixa.Cd_TipoDivergenciaCaixa = TipoDivergenciaCaixa.Cd_TipoDivergenciaCaixa
      WHERE Cd_Caixa = {}
      And No_NaturezaDivergencia = {})",
             shift.Cd_Caixa, nature);
}

constexpr Line kLines[] = {
    {kResult, "0.0", "RESULTADO", "0", "'DÉBITOS'", kNone,
     [](const VOCaixa& shift) { return settled(-(shift.Vl_SomaDebitos + shift.Vl_FaltaSangrias)); }},
    {kResult, "0.0", "RESULTADO", "0", "'CRÉDITOS'", kNone,
     [](const VOCaixa& shift) { return settled(shift.Vl_SomaCreditos + shift.Vl_SobraSangrias); }},

    {kDebits, "0.1", "DÉBITOS", "1", "'1 - VENDAS DE COMBUSTIVEIS'", kNone,
     [](const VOCaixa& shift) {
       return sales(shift, "Calculo Combustíveis", "No_Tipo = 1\rAnd Produto.Fl_VendBomba <> 0");
     }},
    {kDebits, "0.1", "DÉBITOS", "2", "'2 - VENDAS DE PRODUTOS'", kNone,
     [](const VOCaixa& shift) {
       return sales(shift, "Calculo Produtos", "No_Tipo = 1\rAnd Produto.Fl_VendBomba = 0");
     }},
    {kDebitsAsLabel3, "0.1", "DÉBITOS", "3", "'3 - VENDAS DE SERVIÇOS'", kNone,
     [](const VOCaixa& shift) { return sales(shift, "Calculo Serviços", "No_Tipo = 2"); }},
    {kDebits, "0.1", "DÉBITOS", "4", "'4 - CONTAS RECEBIDAS'", kNone,
     [](const VOCaixa& shift) {
       return sql(R"(
           IsNull(Sum(Vl_Recebimento),0) As Valor3
           FROM Recebimento
           WHERE Cd_Caixa = {}
           And (Tp_DocDebito = 10))",
                  shift.Cd_Caixa);
     }},
    {kDebits, "0.1", "DÉBITOS", "5", "'5 - SUPRIMENTOS'", kNone,
     [](const VOCaixa& shift) {
       return sql(R"(
           Isnull(Sum(Vl_Recebimento),0) As Valor2
           FROM Recebimento
           WHERE Cd_PessoaUsuaria = {}
           And Cd_Caixa = {}
           And Ic_Suprimento <> 0)",
                  shift.Cd_PessoaUsuaria, shift.Cd_Caixa);
     }},
    {kDebits, "0.1", "DÉBITOS", "6", "'6 - OUTROS DÉBITOS'", kNone,
     [](const VOCaixa& shift) { return settled(shift.Vl_OutrosDebitos); }},
    {kDebits, "0.1", "DÉBITOS", "7", "'7 - FALTA NAS SANGRIAS'", kNone,
     [](const VOCaixa& shift) { return settled(shift.Vl_FaltaSangrias); }},

    {kCreditsAsLabel3, "0.2", "CRÉDITOS", "7", "'7 - RECEBIMENTOS'", "NULL As Valor1, NULL As Vl_Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           Sum(Vl_Recebimento) As Valor3
           FROM Recebimento
           WHERE Cd_Caixa = {})",
                  shift.Cd_Caixa);
     }},
    {kCredits, "0.2", "CRÉDITOS", "8", "'8 - VENDAS A CRÉDITO'", kNone,
     [](const VOCaixa& shift) {
       return sql(R"(
           Sum(Vl_TotalLiquido) As Valor3
           FROM CupomFiscal
           WHERE Tp_Venda BETWEEN 10 And 20
           And Cd_Caixa = {}
           And CupomFiscal.Ic_Excluido = 0)",
                  shift.Cd_Caixa);
     }},
    {kCredits, "0.2", "CRÉDITOS", "9", "'9 - OUTROS CRÉDITOS'", kNone,
     [](const VOCaixa& shift) { return settled(shift.Vl_OutrosCreditos); }},
    {kCredits, "0.2", "CRÉDITOS", "10", "'10 - SOBRA NAS SANGRIAS'", kNone,
     [](const VOCaixa& shift) { return settled(shift.Vl_SobraSangrias); }},

    {{"BOMBA - COMBUSTÍVEL - INICIO TURNO", {"ENCER.FINAL", "ENCER.INICIAL", "VENDA LITROS"}},
     "1.1",
     "ENCERRANTES",
     "RespBomba.Cd_Bomba",
     "Substring(Rtrim(Convert(Char,RespBomba.Cd_Bomba)) + ' - ' + Rtrim(Produto.Nm_Produto) + ' - ' + "
     "Rtrim(Convert(Char, RespBomba.Dt_RespBomba, 108)),1,80)",
     "RespBomba.No_EncerranteEletronicoFechamento As Valor1, RespBomba.No_EncerranteEletronicoAbertura As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           RespBomba.Qt_Venda As Valor3
           FROM RespBomba
           INNER JOIN Bomba On RespBomba.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And RespBomba.Cd_Bomba = Bomba.Cd_Bomba
           INNER JOIN Produto On Bomba.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And Bomba.Cd_Produto = Produto.Cd_Produto
           WHERE RespBomba.Cd_Caixa = {}
           ORDER BY RespBomba.Cd_Bomba, RespBomba.Dt_RespBomba)",
                  shift.Cd_Caixa);
     }},
    {{"BOMBA - COMBUSTÍVEL - ABASTECIMENTO", {"LITROS", "PREÇO", "TOTAL"}},
     "1.2",
     "AFERICOES",
     "B.Cd_Bomba",
     "Substring(Rtrim(Convert(Char,B.Cd_Bomba)) + ' - ' + Rtrim(C.Nm_Produto) + ' - ' + "
     "Convert(Char,A.Cd_Abastecimento) ,1,80)",
     "A.Qt_Litros As Valor1, A.Vl_Preco As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           A.Vl_Total As Valor3
           FROM Abastecimento A
           INNER JOIN Bomba B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico
           INNER JOIN Produto C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Produto = C.Cd_Produto
           WHERE A.Cd_Caixa = {}
           And A.Ic_Afericao <> 0)",
                  shift.Cd_Caixa);
     }},
    {{"BOMBA - COMBUSTÍVEL", {"VENDA LITROS", "PREÇO", "TOTAL"}},
     "1.3",
     "1 - VENDAS DE COMBUSTÍVEIS",
     "ItemCupomFiscal.Cd_Bomba",
     "Substring(Rtrim(Convert(Char,ItemCupomFiscal.Cd_Bomba)) + ' - ' + RTrim(Produto.Nm_Produto),1,80)",
     "SUM(ItemCupomFiscal.Qt_Unidade) As Valor1, ItemCupomFiscal.Vl_UnitVenda As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           SUM(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)) As Valor3
           FROM ItemCupomFiscal
           INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
           And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
           And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
           And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
           INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
           INNER JOIN Bomba On ItemCupomFiscal.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Bomba = Bomba.Cd_Bomba
           WHERE CupomFiscal.Cd_Caixa = {}
           And CupomFiscal.Ic_Excluido = 0
           And ItemCupomFiscal.Ic_Excluido = 0
           GROUP BY ItemCupomFiscal.Cd_Bomba, Produto.Nm_Produto, ItemCupomFiscal.Vl_UnitVenda)",
                  shift.Cd_Caixa);
     }},
    {{"GRUPO - PRODUTO - CODIGO", {"QUANT.", "PREÇO", "TOTAL"}},
     "2.1",
     "2 - VENDAS DE PRODUTOS",
     "'1'",
     kNameByGroup,
     kValuesByGroup,
     [](const VOCaixa& shift) { return sales_by_group(shift, 1); }},
    {{"GRUPO - SERVIÇO - CODIGO", {"QUANT.", "PREÇO", "TOTAL"}},
     "3.1",
     "3 - VENDAS DE SERVIÇOS",
     "'1'",
     kNameByGroup,
     kValuesByGroup,
     [](const VOCaixa& shift) { return sales_by_group(shift, 2); }},
    {{"SACADO - CODIGO  - CONTA", {"JUROS", "PRINCIPAL", "VALOR PAGO"}},
     "4.1",
     "4 - CONTAS RECEBIDAS",
     "1",
     "Substring(RTrim(Pessoa.Nm_Pessoa) + ' - ' + Rtrim(Convert(Char,ContaAReceber.Cd_Pessoa)) + ' - Conta:' + "
     "Rtrim(Convert(Char,Recebimento.No_DocDebito)),1,80)",
     "Sum(Recebimento.Vl_JurosRec) As Valor1, Sum(Recebimento.Vl_Amortizacao) As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           Sum(Recebimento.Vl_Recebimento) As Valor3
           FROM Recebimento
           INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
           INNER JOIN ContaAReceber On Recebimento.No_DocDebito = ContaAReceber.Cd_ContaAReceber
           INNER JOIN Pessoa On ContaAReceber.Cd_Pessoa = Pessoa.Cd_Pessoa
           WHERE Recebimento.Cd_Caixa = {}
           And Recebimento.Tp_DocDebito=10
           GROUP BY Recebimento.No_DocDebito, Pessoa.Nm_Pessoa, ContaAReceber.Cd_Pessoa
           ORDER BY Recebimento.No_DocDebito, Pessoa.Nm_Pessoa)",
                  shift.Cd_Caixa);
     }},
    {kDivergences, "6.1", "6 - OUTROS DÉBITOS", "1",
     "Substring(RTrim(Ds_DivergenciaCaixa) + ' - ' + RTrim(Ds_Divergencia),1,80)", "0 As Valor1, 0 As Valor2",
     [](const VOCaixa& shift) { return divergences(shift, 2); }},
    {{"FORMA - SANGRIA", {" - ", "QUANT.", "VALOR"}},
     "7.1",
     "7 - RECEBIMENTOS",
     "1",
     "Substring(RTrim(TipoRecebimento.Nm_TipoRecebimento) + ' - ' + "
     "Rtrim(Convert(Char,Recebimento.No_Sangria)),1,80)",
     "NULL As Valor1, COUNT(Recebimento.No_Recebimento) As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           SUM(Recebimento.Vl_Recebimento) As Valor1
           FROM Recebimento
           INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
           WHERE Recebimento.Cd_Caixa = {}
           GROUP BY TipoRecebimento.Nm_TipoRecebimento, Recebimento.No_Sangria
           ORDER BY TipoRecebimento.Nm_TipoRecebimento, Recebimento.No_Sangria)",
                  shift.Cd_Caixa);
     }},
    {{"CLIENTE - CUPOM", {"VAL.BRUTO", "DESC/ACRE", "VAL.LÍQUIDO"}},
     "8.1",
     "8 - VENDAS A CRÉDITO",
     "1",
     "Substring(Pessoa.Nm_Pessoa + ' - ' + Rtrim(Convert(Char,CupomFiscal.No_CupomFiscal)),1,80)",
     "CupomFiscal.Vl_Total As Valor1, CupomFiscal.Vl_DesAcr As Valor2",
     [](const VOCaixa& shift) {
       return sql(R"(
           CupomFiscal.Vl_TotalLiquido As Valor3
           FROM CupomFiscal
           LEFT JOIN Cliente On CupomFiscal.Cd_PessoaUsuaria = Cliente.Cd_PessoaUsuaria And CupomFiscal.Cd_Cliente = Cliente.Cd_Cliente
           LEFT JOIN Pessoa On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa
           WHERE CupomFiscal.Cd_Caixa = {}
           And Tp_Venda BETWEEN 10 And 19
           And CupomFiscal.Ic_Excluido = 0
           ORDER BY Pessoa.Nm_Pessoa, CupomFiscal.No_CupomFiscal)",
                  shift.Cd_Caixa);
     }},
    {kDivergences, "9.1", "9 - OUTROS CRÉDITOS", "1", "RTrim(Ds_DivergenciaCaixa) + ' - ' + RTrim(Ds_Divergencia)",
     "0 As Valor1, 0 As Valor2", [](const VOCaixa& shift) { return divergences(shift, 1); }},
};

std::string statement_of(const Line& line, const VOCaixa& shift) {
  const Heads& heads = line.heads;
  return fmt::format(
      "INSERT INTO TempRelCaixa14\r"
      "SELECT '{}' As Label1, '{}' As Label2, '{}' As Label3, '{}' As {},\r"
      "{} As Cd_Grupo, '{}' As Nm_Grupo, {} As Cd_Item,\r"
      "{} As Nm_Item,\r"
      "{},\r"
      "{}",
      heads.name, heads.values[0], heads.values[1], heads.values[2], heads.last_as, line.group, line.group_name,
      line.item, line.name, line.values, line.rest(shift));
}

}  // namespace

void DALCaixa::GerarDadosParaResumoDeCaixa() {
  routine("GerarDadosParaResumoDeCaixa", [&] {
    execute("DELETE FROM TempRelCaixa14 ");
    for (const Line& line : kLines) execute(statement_of(line, *ObVO));
  });
}

}  // namespace posto
