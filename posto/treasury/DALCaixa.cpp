#include "posto/treasury/DALCaixa.h"

#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/services/clock.h"
#include "posto/types/number_pattern.h"

namespace posto {

void DALCaixa::require_employee() {
  constexpr std::string_view kEmployee[] = {"Cd_PessoaUsuaria", "Cd_Funcionario"};
  if (!has_values(kEmployee)) raise(erro::kMissingKey);
}

VOCaixa& DALCaixa::ConsultarUltimoCaixa() {
  routine("ConsultarUltimoCaixa", [&] {
    require_employee();
    Recordset rs =
        detached(sql(R"(
        SELECT A.*
        FROM Caixa A
        WHERE A.Cd_PessoaUsuaria = {}
        AND A.Cd_Funcionario = {}
        AND A.Dt_Abertura <= {}
        AND A.Cd_Situacao = 1
        ORDER BY A.Dt_Abertura, A.No_Sequencial ;)",
                     ObVO->Cd_PessoaUsuaria, ObVO->Cd_Funcionario, DateSemHoraToSql(clock_now(), *ObVOSistema)));
    if (rs.EOF() && rs.BOF()) raise(erro::kRecordNotFound, "(Caixa)");
    rs.MoveLast();
    read_record(rs, vo());
  });
  return *ObVO;
}

std::int32_t DALCaixa::ConsultarUltimoSequencial(std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Funcionario) {
  return routine("ConsultarUltimoSequencial", [&] {
    require_employee();
    Recordset rs = detached(sql(R"(
        SELECT A.*
        FROM Caixa A
        WHERE A.Cd_PessoaUsuaria = {}
        AND A.Cd_Funcionario = {}
        AND A.Dt_Abertura = {}
        ORDER BY A.Dt_Abertura, A.No_Sequencial ;)",
                                Cd_PessoaUsuaria, Cd_Funcionario, DateSemHoraToSql(clock_now(), *ObVOSistema)));
    if (rs.EOF() && rs.BOF()) return std::int32_t{0};
    rs.MoveLast();
    return rs["No_Sequencial"].as<std::int32_t>();
  });
}

bool DALCaixa::ExisteRespBomba() {
  return routine("ExisteRespBomba", [&] {
    constexpr std::string_view kShift[] = {"Cd_PessoaUsuaria", "Cd_Caixa"};
    return !read(sqlSelect(*ObVOSistema, "RespBomba", vo(), {}, kShift)).EOF();
  });
}

Recordset DALCaixa::Rs_RecebimentosETroco(std::string& /*Ds_Resultado*/) {
  return routine("Rs_RecebimentosETroco", [&] {
    return detached(sql(R"(
        SELECT CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
        CupomFiscal.Vl_TotalLiquido, Sum(Recebimento.Vl_Recebimento) As SomaVl_Recebimento,
        Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura
        FROM CupomFiscal
        LEFT JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
        And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
        And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
        And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
        LEFT JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
        And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
        INNER JOIN Caixa On CupomFiscal.Cd_Caixa = Caixa.Cd_Caixa
        WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And Caixa.Cd_Caixa = {}
        And CupomFiscal.Ic_Excluido = 0
        GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
        CupomFiscal.Vl_TotalLiquido, Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura, CupomFiscal.Tp_Venda
        HAVING (Sum(Recebimento.Vl_Recebimento) <> CupomFiscal.Vl_TotalLiquido Or Sum(Recebimento.Vl_Recebimento) Is Null)
        And CupomFiscal.Vl_TotalLiquido > 0
        And CupomFiscal.Tp_Venda Between 20 and 29)",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_Caixa));
  });
}

Recordset DALCaixa::Rs_CuponsFiscais() {
  return routine("Rs_CuponsFiscais", [&] {
    return detached(sql(R"(
        SELECT *
        FROM CupomFiscal
        WHERE Cd_PessoaUsuaria = {}
        And Cd_Caixa = {}
        And Ic_Excluido = 0
        ORDER BY Dt_Emissao, Hr_Emissao)",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_Caixa));
  });
}

Recordset DALCaixa::Rs_VolumeCombustiveisVendidos() {
  return routine("Rs_VolumeCombustiveisVendidos", [&] {
    return detached(sql(R"(
        SELECT A.Cd_PessoaUsuaria, A.Cd_Bomba, A.De_EnderecoLogicoBico, B.Nm_Produto, Sum(C.Qt_Litros) As SomaDeQt_Litros,
        A.No_UltEncerrante, A.No_UltEncerranteAutomacao
        FROM Bomba A
        INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
        INNER JOIN Abastecimento C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And A.De_EnderecoLogicoBico = C.De_EnderecoLogicoBico
        WHERE A.Cd_PessoaUsuaria = {}
        GROUP BY A.Cd_PessoaUsuaria, A.Cd_Bomba, A.De_EnderecoLogicoBico, B.Nm_Produto, A.No_UltEncerrante, A.No_UltEncerranteAutomacao
        ORDER BY A.Cd_Bomba)",
                        ObVO->Cd_PessoaUsuaria));
  });
}

void DALCaixa::CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao) {
  load_list_of(Ob_ComboBox, sql(R"(
      SELECT *
      FROM Caixa
      {}
      ORDER BY No_Sequencial)",
                                Ds_Condicao));
}

void DALCaixa::list_record(ListItems& items, Recordset& record) {
  const std::string day = format_date(record["Dt_Abertura"].value_or(Date()), "dd/mm/yyyy");
  items.add(format_number(record["No_Sequencial"].value_or(std::int32_t{0}), "00") + " - " + day + " " +
                record["Hr_Abertura"].value_or(std::string()),
            record["Cd_Caixa"].Value());
}

void DALCaixa::CarregarComboBox2(LateBound& Ob_ComboBox, std::string_view Ds_Condicao) {
  routine("CarregarComboBox2", [&] {
    ListItems items(Ob_ComboBox);
    ObVOSistema->EntrarRotina("CarregarComboBox2");
    items.clear();
    Recordset rs = detached(sql(R"(
        SELECT Cd_Caixa, Pessoa.Nm_Pessoa + '-SEQ:' + Cast(Caixa.No_Sequencial As VARchar(2)) As Ds_Caixa
        FROM Caixa
        INNER JOIN Pessoa On Pessoa.Cd_Pessoa = Caixa.Cd_Funcionario
        {}
        ORDER BY Pessoa.Nm_Pessoa)",
                                Ds_Condicao));
    if (!rs.EOF()) items.add("SELECIONE ->", std::int32_t{0});
    for (; !rs.EOF(); rs.MoveNext()) items.add(rs["Ds_Caixa"].Value(), rs["Cd_Caixa"].Value());
    ObVOSistema->SairRotina("CarregarComboBox2");
  });
}

}  // namespace posto
