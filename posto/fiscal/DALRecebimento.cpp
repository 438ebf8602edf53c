#include "posto/fiscal/DALRecebimento.h"

#include "posto/core/column_list.h"
#include "posto/core/sql.h"

namespace posto {
namespace {

constexpr ListColumn kReceiptColumns[] = {
    {"Cd_PessoaUsuaria", integer(kNullWhenEmpty)},
    {"No_Recebimento", integer()},
    {"Tp_DocDebito", tiny_int()},
    {"No_DocDebito", integer(kNullWhenEmpty)},
    {"Cd_TipoRecebimento", integer(kNullWhenEmpty)},
    {"Cd_Cmc7Rec", var_char(30, kNullWhenEmpty)},
    {"Cd_BancoRec", small_int(kNullWhenEmpty)},
    {"Cd_AgenciaRec", small_int(kNullWhenEmpty)},
    {"Cd_ContaRec", var_char(20, kNullWhenEmpty)},
    {"Nm_IdDocumentoRec", var_char(20)},
    {"Tp_Operacao", tiny_int()},
    {"Cd_Tipo0", tiny_int(kNullWhenEmpty)},
    {"Cd_Tipo1", tiny_int(kNullWhenEmpty)},
    {"Cd_CgcCpf0", var_char(18, kNullWhenEmpty)},
    {"Cd_CgcCpf1", var_char(18, kNullWhenEmpty)},
    {"Dt_Recebimento", day()},
    {"Vl_Recebimento", money(2)},
    {"Qt_DiasAtraso", integer()},
    {"Vl_Amortizacao", money(2)},
    {"Vl_JurosRec", money(2)},
    {"Tx_MoraRec", money(4)},
    {"Dt_Lancamento", day()},
    {"Cd_Caixa", integer(kNullWhenEmpty)},
    {"No_Sangria", integer()},
    {"Ic_Suprimento", bit()},
};

constexpr std::string_view kFloat = "SUPRIMENTO";

std::string bank_condition(std::int16_t bank) {
  return bank == 0 ? "And Recebimento.Cd_BancoRec Is Null" : sql("And Recebimento.Cd_BancoRec={}", bank);
}

std::string branch_condition(std::int16_t branch) {
  return branch == 0 ? "And Recebimento.Cd_AgenciaRec Is Null" : sql("And Recebimento.Cd_AgenciaRec={}", branch);
}

std::string account_condition(const std::string& account) {
  return account.empty() ? "And (Recebimento.Cd_ContaRec='' Or Recebimento.Cd_ContaRec Is Null)"
                         : sql("And Recebimento.Cd_ContaRec='{}'", account);
}

}  // namespace

void DALRecebimento::SetarConexoeFilhas() {
  Ob_DALConsultaCheque.ObVOSistema = ObVOSistema;
  Ob_DALTipoRecebimento.ObVOSistema = ObVOSistema;
  Ob_DALRecebimentoCupom.ObVOSistema = ObVOSistema;
}

bool DALRecebimento::is_float() const { return ObVO->Nm_IdDocumentoRec == kFloat; }

VORecebimento& DALRecebimento::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  consult(Ic_RestaurarDefaulSeNaoEcontrarRegistro, [&] {
    if (!is_float()) read_coupon();
  });
  return *ObVO;
}

void DALRecebimento::read_coupon() {
  SetarConexoeFilhas();
  auto coupon = Ob_DALRecebimentoCupom.ObVO = std::make_shared<VORecebimentoCupom>();
  coupon->Cd_PessoaUsuaria = ObVO->Cd_PessoaUsuaria;
  coupon->No_Recebimento = ObVO->No_Recebimento;
  try {
    Ob_DALRecebimentoCupom.Consultar(true);
  } catch (const Erro& failure) {
    if (failure.number() != erro::kRecordNotFound) throw;
  }
  ObVO->No_Impressora = coupon->No_Impressora;
  ObVO->No_CupomFiscal = coupon->No_CupomFiscal;
  ObVO->Dt_Emissao = coupon->Dt_Emissao;
}

std::string DALRecebimento::instrucaoInsert() {
  static const ColumnList kList("Recebimento", kReceiptColumns, layout_of<VORecebimento>());
  return routine("instrucaoInsert", [&] { return kList.insert_statement(vo(), *ObVOSistema); });
}

void DALRecebimento::Incluir() {
  routine("Incluir", [&] { execute(instrucaoInsert()); });
}

bool DALRecebimento::IncluirRecebimentoCupom() {
  return routine("IncluirRecebimentoCupom", [&] {
    if (ObVO->No_CupomFiscal == 0 || is_float()) return true;
    SetarConexoeFilhas();
    auto coupon = Ob_DALRecebimentoCupom.ObVO = std::make_shared<VORecebimentoCupom>();
    coupon->Cd_PessoaUsuaria = ObVO->Cd_PessoaUsuaria;
    coupon->No_Recebimento = ObVO->No_Recebimento;
    coupon->No_Impressora = ObVO->No_Impressora;
    coupon->No_CupomFiscal = ObVO->No_CupomFiscal;
    coupon->Dt_Emissao = ObVO->Dt_Emissao;
    Ob_DALRecebimentoCupom.Incluir();
    return true;
  });
}

bool DALRecebimento::ExisteLancamentoDocumento(Tp_EdicaoEnum No_TipoEdicao) {
  return routine("ExisteLancamentoDocumento", [&] {
    const bool edit = No_TipoEdicao == Tp_EdicaoAlteracao && ObVO->No_Recebimento > 0;
    return !read(sql(R"(
        SELECT Recebimento.No_Recebimento
        FROM Recebimento
        WHERE Recebimento.Cd_TipoRecebimento = {}
        And Recebimento.Nm_IdDocumentoRec='{}'
        {}
        {}
        {}
        {})",
                     ObVO->Cd_TipoRecebimento, ObVO->Nm_IdDocumentoRec, bank_condition(ObVO->Cd_BancoRec),
                     branch_condition(ObVO->Cd_AgenciaRec), account_condition(ObVO->Cd_ContaRec),
                     edit ? sql("And Recebimento.No_Recebimento <> {}", ObVO->No_Recebimento) : ""))
                .EOF();
  });
}

Recordset DALRecebimentos::ConsultarRecebimentosNaoSangradosDoCaixa(const VOCaixa& ObVOCaixa,
                                                                    const VOTipoRecebimento& ObVOTipoRecebimento,
                                                                    [[maybe_unused]] std::uint8_t No_Impressora) {
  return routine("ConsultarRecebimentosNaoSangradosDoCaixa", [&] {
    return detached(sql(R"(
         SELECT A.*
         FROM Recebimento A
         WHERE A.Cd_PessoaUsuaria = {}
         And A.Cd_Caixa = {}
         And A.No_Sangria = 0
         And A.Cd_TipoRecebimento = {}
         ORDER BY A.No_Recebimento)",
                        tenant(), ObVOCaixa.Cd_Caixa, ObVOTipoRecebimento.Cd_TipoRecebimento));
  });
}

}  // namespace posto
