#include "posto/forecourt/DALBomba.h"

#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr std::string_view kByCode[] = {"Cd_PessoaUsuaria", "Cd_Bomba"};
constexpr std::string_view kAddress[] = {"De_EnderecoLogicoBico"};

// Written by every Alterar, in this order.
constexpr std::string_view kNozzleColumns[] = {"De_EnderecoLogicoBico",
                                               "Cd_Produto",
                                               "No_UltEncerrante",
                                               "Qt_Emitir",
                                               "Qt_AbaMed",
                                               "Cd_AltPreco",
                                               "Tx_Desconto",
                                               "Vl_Desconto",
                                               "Tx_Acrescimo",
                                               "Vl_Acrescimo",
                                               "Cd_SisTubulacao",
                                               "Qt_Diferenca",
                                               "No_EncerranteInicial",
                                               "De_Status",
                                               "Fl_AlterarPrecoAutomacao",
                                               "No_UltimoSequencialAutomacaoConferido",
                                               "Hr_UltimaConferenciaEncerrante",
                                               "Qt_DiferencaEncerranteMecanico",
                                               "No_UltEncerranteAutomacao",
                                               "Nm_ComputadorBaixaAutomatica",
                                               "No_TipoControleResponsabilidade",
                                               "Fl_BloquearBico",
                                               "Ic_PermitirDigitacaoAbastecimento",
                                               "Qt_LitrosReinicioAutomacao",
                                               "Qt_ReinicioAutomacao"};

// The presets of the next delivery: the automation's frequent writes leave them to the operator.
constexpr std::string_view kReleaseColumns[] = {
    "Cd_Caixa",           "Cd_Veiculo",       "No_TipoPagamento",         "No_TipoVencimento",
    "Ic_BaixaAutomatica", "Vl_Abastecimento", "Tx_DescontoAbastecimento", "Fl_AutorizarAbastecimento",
    "No_Hodometro"};

// At this revision the order of the unverified deliveries has no counter.
constexpr std::int32_t kRevisionWithoutCounter = 192;

}  // namespace

Names DALBomba::key_for(Purpose purpose) {
  if (purpose == Purpose::read) return Entity::key_for(purpose);
  if (ObVO->Cd_Bomba != 0) return kByCode;
  if (purpose == Purpose::change && !ObVO->De_EnderecoLogicoBico.empty()) return kAddress;
  return {};
}

void DALBomba::Alterar(bool Ic_Salvando, bool Ic_GravarResponsabilidades, bool Ic_GravarLiberacaoBomba) {
  alter(Ic_Salvando, [&](Recordset& record) {
    auto write = [&](Names columns) {
      for (std::string_view column : columns) tolerant([&] { record[column] = vo().get(column); });
    };
    write(kNozzleColumns);
    if (!Ic_GravarResponsabilidades && !Ic_GravarLiberacaoBomba) return;
    write(kReleaseColumns);
    if (trim(ObVO->Cd_Veiculo).empty()) record["Cd_Veiculo"] = Null{};
  });
}

void DALBomba::Salvar(bool Ic_GravarResponsabilidades) {
  save(
      "Salvar", [&] { Alterar(true, Ic_GravarResponsabilidades); }, [&] { Incluir(); });
}

double DALBomba::UltimoEncerranteEletronico() {
  return routine("UltimoEncerranteEletronico", [&] {
    ObVO->Cd_PessoaUsuaria = tenant();
    Recordset rs = read(sql(R"(
        SELECT   TOP 1 No_EncerranteFechamento
        FROM     Abastecimento
        WHERE    Cd_PessoaUsuaria = {} And
                 De_EnderecoLogicoBico = '{}'
        ORDER BY Dt_Termino Desc, No_Contador Desc, Cd_Abastecimento Desc)",
                            ObVO->Cd_PessoaUsuaria, ObVO->De_EnderecoLogicoBico));
    return rs.EOF() ? 0.0 : rs["No_EncerranteFechamento"].value_or(0.0);
  });
}

double DALBomba::EncerranteAnteriorAoDia(Date Dt_Verificacao) {
  return routine("EncerranteAnteriorAoDia", [&] {
    Recordset rs = read(sql(R"(
        SELECT   TOP 1 No_EncerranteFechamento
        FROM     Abastecimento
        WHERE    Cd_PessoaUsuaria = {} And
                 De_EnderecoLogicoBico = '{}' And
                 Dt_Termino < {}
        ORDER BY Dt_Termino Desc, No_Contador Desc)",
                            tenant(), ObVO->De_EnderecoLogicoBico, DateSemHoraToSql(Dt_Verificacao, *ObVOSistema)));
    return rs.EOF() ? 0.0 : rs["No_EncerranteFechamento"].value_or(0.0);
  });
}

Date DALBomba::DataUltimoAbastecimento() {
  return routine("DataUltimoAbastecimento", [&] {
    if (ObVO->De_EnderecoLogicoBico.empty()) raise(erro::kMissingKey);
    Recordset rs = read(sql(R"(
        SELECT Max(A.Dt_Termino) AS MaxDeDt_Termino
        FROM   Abastecimento AS A
        WHERE  A.Cd_PessoaUsuaria = {} AND
               A.De_EnderecoLogicoBico = '{}' ;)",
                            tenant(), ObVO->De_EnderecoLogicoBico));
    if (rs.EOF()) raise(erro::kRecordNotFound, "(Bomba)");
    return rs["MaxDeDt_Termino"].value_or(Date());
  });
}

Recordset DALBomba::Rs_AbastecimentosPendentes() {
  return routine("Rs_AbastecimentosPendentes", [&] {
    if (ObVO->De_EnderecoLogicoBico.empty()) Consultar();
    return detached(sql(R"(
        SELECT   A.*, Pessoa.Nm_Pessoa
        FROM     Abastecimento AS A
                 LEFT JOIN Caixa       AS B      ON A.Cd_Caixa = B.Cd_Caixa
                 LEFT JOIN Funcionario AS C      ON B.Cd_Funcionario = C.Cd_Funcionario
                 LEFT JOIN Pessoa      AS Pessoa ON C.Cd_Funcionario = Pessoa.Cd_Pessoa
        WHERE    A.Cd_PessoaUsuaria = {} AND
                 A.De_EnderecoLogicoBico = '{}' AND
                 A.Ic_Baixado = 0
        ORDER BY A.Vl_Total, A.Dt_Termino)",
                        tenant(), ObVO->De_EnderecoLogicoBico));
  });
}

Recordset DALBomba::Rs_AbastecimentosNaoConferido() {
  return routine("Rs_AbastecimentosNaoConferido", [&] {
    return detached(sql(R"(
        SELECT   A.*
        FROM     Abastecimento A
        WHERE    A.Cd_PessoaUsuaria = {} AND
                 A.Cd_Abastecimento >= {} AND
                 A.De_EnderecoLogicoBico ='{}' AND
                 A.Dt_Termino > {}
        ORDER BY A.Dt_Termino, A.No_Contador)",
                        tenant(), ObVO->No_UltimoSequencialAutomacaoConferido, ObVO->De_EnderecoLogicoBico,
                        DateSemHoraToSql(ObVOSistema->ObVOEmpresaUsuaria->Dt_CorteMovimento, *ObVOSistema)));
  });
}

Recordset DALBomba::Rs_AbastecimentoNaoVerificado(Date Dt_Verificacao) {
  return routine("Rs_AbastecimentoNaoVerificado", [&] {
    bool by_counter = ObVOSistema->No_Revisao != kRevisionWithoutCounter;
    const std::string day = format_date(Dt_Verificacao, ObVOSistema->Ds_FormatoData);
    return detached(sql(R"(
        SELECT   *
        FROM     Abastecimento
        WHERE    Cd_PessoaUsuaria = {} And
                 De_EnderecoLogicoBico = '{}' And
                 Dt_Termino  Between '{} 00:00:00' and '{} 23:59:59'
        ORDER BY Dt_Termino, {}Cd_Abastecimento)",
                        tenant(), ObVO->De_EnderecoLogicoBico, day, day, by_counter ? "No_Contador, " : ""));
  });
}

}  // namespace posto
