#include "posto/fiscal/DALCupomFiscal.h"

#include "posto/core/column_list.h"
#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr ListColumn kHeadColumns[] = {
    {"Cd_PessoaUsuaria", integer(kNullWhenEmpty)},
    {"No_Impressora", tiny_int(kNullWhenEmpty)},
    {"No_CupomFiscal", integer()},
    {"No_ContadorCupomFiscal", integer()},
    {"Dt_Emissao", day()},
    {"Hr_Emissao", var_char(8)},
    {"Vl_TotProd", money(3)},
    {"Vl_BasCalIcms", money(3)},
    {"Vl_Icms", money(3)},
    {"Vl_TotSer", money(2)},
    {"Vl_BasCalIss", money(2)},
    {"Vl_Iss", money(2)},
    {"Vl_Total", money(2)},
    {"Vl_DesAcr", money(2)},
    {"Vl_IssRetido", money(2)},
    {"Vl_TotalLiquido", money(2)},
    {"Tp_Venda", tiny_int()},
    {"Cd_Veiculo", var_char(8, kNullWhenEmpty)},
    {"No_Km", integer()},
    {"Tp_ImpNf", tiny_int()},
    {"No_NF", integer(kNullWhenEmpty)},
    {"Dt_Fechamento", day()},
    {"FL_Fechada", var_char(1)},
    {"Cd_ContaAReceber", integer(kNullWhenEmpty)},
    {"Dt_Vencimento", day()},
    {"Cd_Cfop", var_char(7)},
    {"Cd_Caixa", integer(kNullWhenEmpty)},
    {"Dt_EfeFechamento", day()},
    {"Cd_FuncionarioEfeFechamento", integer(kNullWhenEmpty)},
    {"Nm_IdCliente", var_char(30)},
    {"Tx_Iss", money(2)},
    {"Fl_IssRetido", bit()},
    {"Vl_GTotal", money(2)},
    {"Qt_ContReducoes", integer()},
    {"Vl_Isentas", money(2)},
    {"Vl_NaoTributadoICMS", money(2)},
    {"Vl_SubTrib", money(2)},
    {"Vl_Cancelamentos", money(2)},
    {"Id_CampoExtraCF", var_char(50)},
    {"Ic_CupomConcluido", bit()},
    {"Cd_SequenciaNotaServico", integer(kNullWhenEmpty)},
    {"Cd_SequenciaNotaCupom", integer(kNullWhenEmpty)},
    {"Cd_Cliente", integer(kNullWhenEmpty)},
    {"No_Requisicao", integer(kNullWhenEmpty)},
    {"Ic_BaixaAutomatica", bit()},
};

constexpr std::string_view kReceiptLink[] = {"Cd_PessoaUsuaria", "No_Impressora", "No_CupomFiscal", "Dt_Emissao",
                                             "No_Recebimento"};
constexpr std::string_view kReceipt[] = {"Cd_PessoaUsuaria", "No_Recebimento"};

// Follows the figure before it without a blank.
std::string_view coupon_lines_of(TipoConsultaItensEnum which) {
  switch (which) {
    case SomenteProdutos:
      return "AND B.No_Tipo = 1";
    case SomenteServicos:
      return "AND B.No_Tipo = 2";
    default:
      return "";
  }
}

}  // namespace

// --- parts of statements

void DALCupomFiscal::require_key() {
  if (!has_values(kCupomFiscal.keys[0].names())) raise(erro::kMissingKey);
}

std::string DALCupomFiscal::day(Date date) const { return DateSemHoraToSql(date, *ObVOSistema); }

// The conditions on the coupon's key, of a table or of its alias, without the word WHERE.
std::string DALCupomFiscal::key_of(std::string_view alias, std::string_view conjunction) const {
  return sql(R"(
      {}Cd_PessoaUsuaria = {}
      {} {}No_Impressora = {}
      {} {}No_CupomFiscal = {}
      {} {}Dt_Emissao = {})",
             alias, ObVO->Cd_PessoaUsuaria, conjunction, alias, ObVO->No_Impressora, conjunction, alias,
             ObVO->No_CupomFiscal, conjunction, alias, day(ObVO->Dt_Emissao));
}

// --- the record

void DALCupomFiscal::Alterar(bool Ic_Salvando) {
  auto write = [&](Recordset& record) {
    fill(record);
    if (trim(ObVO->Id_Empenho).empty()) record["Id_Empenho"] = Null{};
  };
  alter(Ic_Salvando, write, [&] {
    corrigirCaixaRecebimentoDiferenteCaixaCupom();
    Ic_adoRsItensAtualizado = false;
  });
}

std::string DALCupomFiscal::instrucaoInsert() {
  static const ColumnList kList("CupomFiscal", kHeadColumns, layout_of<VOCupomFiscal>());
  return routine("instrucaoInsert", [&] { return kList.insert_statement(vo(), *ObVOSistema); });
}

bool DALCupomFiscal::Incluir() {
  return routine("Incluir", [&] {
    execute(instrucaoInsert());
    corrigirCaixaRecebimentoDiferenteCaixaCupom();
    Ic_adoRsItensAtualizado = false;
    return true;
  });
}

void DALCupomFiscal::Excluir() {
  routine("Excluir", [&] {
    const Names key = key_for(Purpose::remove);
    if (key.empty()) raise_missing(true);
    execute(sqlIndicadorExcluido(*ObVOSistema, "CupomFiscal", vo(), key));
    Ic_adoRsItensAtualizado = false;
  });
}

void DALCupomFiscal::corrigirCaixaRecebimentoDiferenteCaixaCupom() {
  routine("corrigirCaixaRecebimentoDiferenteCaixaCupom", [&] {
    execute(sql(R"(
        Update Recebimento
        Set    Cd_Caixa = {}
        WHERE  Cd_PessoaUsuaria = {} And
               No_Recebimento In (
               SELECT Recebimento.No_Recebimento
               FROM   CupomFiscal
                      LEFT JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria And
                                                    CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora And
                                                    CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal And
                                                    CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
                      LEFT JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria And
                                               RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
               WHERE  CupomFiscal.Cd_Caixa <> Recebimento.Cd_Caixa And
                      CupomFiscal.No_Impressora = {} And
                      CupomFiscal.No_CupomFiscal = {} And
                      CupomFiscal.Dt_Emissao = {}))",
                ObVO->Cd_Caixa, ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, ObVO->No_CupomFiscal,
                day(ObVO->Dt_Emissao)));
  });
}

void DALCupomFiscal::ConsultarUltimo() {
  routine("ConsultarUltimo", [&] {
    Recordset coupons = detached(sql(R"(
        SELECT   *
        FROM     CupomFiscal
        WHERE    Cd_PessoaUsuaria = {} And
                 No_Impressora = {} And
                 Dt_Emissao = {} And
                 Ic_Excluido = 0
        ORDER BY Hr_Emissao)",
                                     ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, day(ObVO->Dt_Emissao)));
    require_record(coupons, "CupomFiscal", false);
    coupons.MoveLast();
    read_record(coupons, vo());
  });
}

void DALCupomFiscal::AlterarParaFaturado(std::int32_t Cd_ContaAReceber, Date Dt_EfeFechamento,
                                         std::int32_t Cd_FuncionarioEfeFechamento, Date Dt_Vencimento,
                                         Date Dt_Fechamento) {
  routine("AlterarParaFaturado", [&] {
    require_key();
    execute(sql(R"(
        UPDATE CupomFiscal
        SET    Cd_ContaAReceber = {},
               FL_Fechada = 'S',
               Dt_EfeFechamento = {},
               Cd_FuncionarioEfeFechamento = {},
               Dt_Vencimento = {},
               Dt_Fechamento = {}
        WHERE  {})",
                Cd_ContaAReceber, day(Dt_EfeFechamento), Cd_FuncionarioEfeFechamento, day(Dt_Vencimento),
                day(Dt_Fechamento), key_of("")));
  });
}

// --- receipts

bool DALCupomFiscal::ExcluirRecebimentos() {
  return routine("ExcluirRecebimentos", [&] {
    require_key();
    Recordset receipts = detached(sql(R"(
        SELECT B.No_Recebimento, A.*
        FROM   RecebimentoCupom A
               INNER JOIN Recebimento AS B ON A.No_Recebimento = B.No_Recebimento
        WHERE  {} ;)",
                                      key_of("A.", "AND")));
    VORecebimentoCupom link;
    for (; !receipts.EOF(); receipts.MoveNext()) {
      for (std::string_view column : kReceiptLink) by_name(link).let(column, receipts[column].Value());
      execute(sqlDelete(*ObVOSistema, "RecebimentoCupom", by_name(link), kReceiptLink));
      execute(sqlDelete(*ObVOSistema, "Recebimento", by_name(link), kReceipt));
    }
    return true;
  });
}

Recordset DALCupomFiscal::adorsRecebimentos() {
  return routine("ConsultarRecebimentos", [&] {
    return detached(sql(R"(
        SELECT TipoRecebimento.Nm_TipoRecebimento, Recebimento.*
        FROM   RecebimentoCupom
               INNER JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria And
                                         RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
               INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
        WHERE  {})",
                        key_of("RecebimentoCupom.")));
  });
}

Currency DALCupomFiscal::ConsultarTotalRecebimentos() {
  return routine("ConsultarTotalRecebimentos", [&] {
    Recordset total = read(sql(R"(
        SELECT Sum(B.Vl_Recebimento) AS SomaDeVl_Recebimento
        FROM   RecebimentoCupom A
               INNER JOIN Recebimento AS B ON B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                              B.No_Recebimento = A.No_Recebimento
        WHERE  {})",
                               key_of("A.", "AND")));
    return total["SomaDeVl_Recebimento"].value_or(Currency());
  });
}

// --- lines

Recordset& DALCupomFiscal::ConsultarItens(TipoConsultaItensEnum Tp_Consulta, bool) {
  routine("ConsultarItens", [&] {
    if (items_.State() != 0 && Ic_adoRsItensAtualizado) {
      if (!(items_.EOF() && items_.BOF())) items_.MoveFirst();
      return;
    }
    items_ = detached(sql(R"(
        SELECT   A.*, B.Nm_Produto, B.No_Tipo
        FROM     ItemCupomFiscal A
                 Left Join Produto B on B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                        B.Cd_Produto = A.Cd_Produto
        WHERE    {}
        And Ic_Excluido = 0{}
        ORDER BY A.No_Item)",
                          key_of("A.", "AND"), coupon_lines_of(Tp_Consulta)));
    Ic_adoRsItensAtualizado = true;
  });
  return items_;
}

Recordset& DALCupomFiscal::Rs_ItensTodos() {
  routine("Rs_ItensTodos", [&] { ConsultarItens(TodosItens); });
  return items_;
}

Recordset& DALCupomFiscal::Rs_ItensProdutos() {
  routine("Rs_ItensProdutos", [&] { ConsultarItens(SomenteProdutos); });
  return items_;
}

Recordset& DALCupomFiscal::Rs_ItensServicos() {
  routine("Rs_ItensServicos", [&] { ConsultarItens(SomenteServicos); });
  return items_;
}

Recordset& DALCupomFiscal::adorsItens() {
  routine("ConsultarItens", [&] { ConsultarItens(TodosItens); });
  return items_;
}

}  // namespace posto
