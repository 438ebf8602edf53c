#include "posto/forecourt/DALAbastecimento.h"

#include "posto/core/column_list.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/services/clock.h"

namespace posto {
namespace {

constexpr ListColumn kFuellingColumns[] = {
    {"Cd_PessoaUsuaria", integer()},
    {"Tp_OrigemRegistro", tiny_int()},
    {"No_Contador", small_int()},
    {"Dt_Termino", moment()},
    {"Qt_TempoSegundos", small_int()},
    {"Qt_Litros", float32(8)},
    {"Qt_LitrosAutomacao", float32(8)},
    {"Vl_Preco", money(3)},
    {"Vl_Total", money(3)},
    {"De_EnderecoLogicoBico", var_char(2)},
    {"No_EncerranteFechamento", float64(8)},
    {"Cd_Caixa", integer(kNullWhenEmpty)},
    {"Cd_Veiculo", var_char(8, kNullWhenEmpty)},
    {"No_TipoPagamento", tiny_int()},
    {"Ic_BaixaAutomatica", bit()},
    {"Cd_Abastecimento", integer()},
    {"Ic_Baixado", bit()},
    {"Fl_TipoPedidoFeitoAutomacao", small_int()},
    {"No_TipoVencimento", tiny_int()},
    {"Ic_Afericao", bit()},
    {"Cd_Cmc7", var_char(30, kNullWhenEmpty)},
    {"Tx_DescontoAbastecimento", money(3)},
    {"No_Hodometro", integer()},
};

constexpr std::string_view kPrimaryKey[] = {"Cd_PessoaUsuaria", "Cd_Abastecimento"};
constexpr std::string_view kReadingKey[] = {"Cd_PessoaUsuaria", "De_EnderecoLogicoBico", "No_EncerranteFechamento"};

}  // namespace

// The tenant takes no part in the choice.
Names DALAbastecimento::key_for(Purpose purpose) {
  if (ObVO->Cd_Abastecimento != 0) return kPrimaryKey;
  bool by_reading =
      purpose != Purpose::remove && !ObVO->De_EnderecoLogicoBico.empty() && ObVO->No_EncerranteFechamento != 0;
  return by_reading ? Names(kReadingKey) : Names();
}

std::string DALAbastecimento::instrucaoInsert() {
  static const ColumnList kList("Abastecimento", kFuellingColumns, layout_of<VOAbastecimento>());
  return routine("instrucaoInsert", [&] { return kList.insert_statement(vo(), *ObVOSistema); });
}

void DALAbastecimento::Incluir() {
  routine("Incluir", [&] { execute(instrucaoInsert()); });
}

std::string DALAbastecimento::posting_statement() const {
  return sql(R"(
      Update Abastecimento
      Set    Ic_Baixado = 1
      WHERE  Cd_Abastecimento = {})",
             ObVO->Cd_Abastecimento);
}

bool DALAbastecimento::BaixarAbastecimento() {
  return routine("BaixarAbastecimento", [&] {
    execute(posting_statement());
    return true;
  });
}

bool DALAbastecimento::ConferirBaixa() {
  return routine("ConferirBaixa", [&] {
    Recordset rs = open(sql(R"(
        SELECT   Cd_Abastecimento, Count(*) As Qt_BaixasDoAbastecimento
        FROM     ItemCupomFiscal
        WHERE    Cd_Abastecimento = {}
        GROUP BY Cd_Abastecimento)",
                            ObVO->Cd_Abastecimento));
    const std::int32_t postings = rs.EOF() ? 0 : rs["Qt_BaixasDoAbastecimento"].as<std::int32_t>();
    rs.Close();
    if (postings == 0) {
      raise_described(erro::kRuleViolation,
                      "Erro na conferencia da baixa, o abastecimento não foi baixado corretamente");
    }
    if (postings > 1) {
      execute(posting_statement());
      raise_described(
          erro::kFuellingAlreadyPosted,
          "Erro na conferencia da baixa, o abastecimento já foi baixado anteriormente, tente novamente, se o "
          "problema persistir solicite orientação ao suporte técnico.");
    }
    return true;
  });
}

Recordset DALAbastecimento::ConsultarProximoAbastecimentosBaixaAutomatica() {
  return routine("ConsultarProximoAbastecimentosBaixaAutomatica", [&] {
    const VOEmpresaUsuaria& company = *ObVOSistema->ObVOEmpresaUsuaria;
    std::string filter = "And Abastecimento.Ic_BaixaAutomatica <> 0";
    if (company.Ic_BaixaAutomaticaPorTempo) {
      const Date cut_off = clock_now().plus_millis(std::int64_t{-1000} * company.Qt_SegundosBaixaAutomatica);
      filter = sql("And (Abastecimento.Ic_BaixaAutomatica <> 0 or Abastecimento.Dt_Termino <= {})",
                   DateComHoraToSql(cut_off, *ObVOSistema));
    }
    return detached(sql(R"(
        SELECT   Top 1 Abastecimento.* , Usuario.Cd_Usuario, Caixa.Cd_Funcionario, Bomba.Cd_Bomba
        FROM     Abastecimento
                 INNER JOIN Caixa       On Abastecimento.Cd_Caixa = Caixa.Cd_Caixa
                 INNER JOIN Funcionario On Caixa.Cd_PessoaUsuaria = Funcionario.Cd_PessoaUsuaria And
                                           Caixa.Cd_Funcionario = Funcionario.Cd_Funcionario
                 INNER JOIN Usuario     On Funcionario.Cd_PessoaUsuaria = Usuario.Cd_PessoaUsuaria And
                                           Funcionario.Cd_Funcionario = Usuario.Cd_Funcionario
                 INNER JOIN Bomba       On Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
        WHERE    Abastecimento.Cd_PessoaUsuaria = {} And
                 Abastecimento.Ic_Baixado = 0
                 {} And
                 Usuario.FlMCupomFiscal_I = '1' And
                 Bomba.Nm_ComputadorBaixaAutomatica = '{}'
        ORDER BY Abastecimento.Dt_Termino)",
                        tenant(), filter, ObVOSistema->Nm_Computador));
  });
}

Recordset DALAbastecimentos::ConsultarAbastecimentoPendentesRs(std::int32_t Cd_Funcionario,
                                                               bool Ic_OrdemDecrescenteTermino) {
  return routine("ConsultarAbastecimentoPendentesRs", [&] {
    const std::string employee = Cd_Funcionario == 0 ? "" : sql("And ((C.Cd_Funcionario) = {})", Cd_Funcionario);
    return detached(sql(R"(
        SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
        FROM (Abastecimento AS A LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico)
              LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
        WHERE ( ((A.Cd_PessoaUsuaria)= {}) And
                ((A.Ic_Baixado)= 0)
                {} )
        ORDER BY {} ;)",
                        tenant(), employee,
                        Ic_OrdemDecrescenteTermino ? "A.Dt_Termino DESC, B.Cd_Bomba" : "A.Dt_Termino, B.Cd_Bomba"));
  });
}

Recordset DALAbastecimentos::ConsultarAbastecimentoPendentesOrdenadoPorCodigoRs() {
  return routine("ConsultarAbastecimentoPendentesRs", [&] {
    return detached(sql(R"(
        SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
        FROM Abastecimento AS A
             LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico
             LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
        WHERE ( ((A.Cd_PessoaUsuaria)= {}) And
                ((A.Ic_Baixado)= 0) )
        ORDER BY A.Cd_Abastecimento Desc)",
                        tenant()));
  });
}

void DALAbastecimentos::VerificaAbastecimentosBaixadosSemEmissaoCupom() {
  routine("VeriricaAbastecimentosBaixadosSemEmissaoCupom", [&] {
    execute(sql(R"(
         UPDATE (Encerrante
                LEFT JOIN ItemCupomFiscal ON Encerrante.No_Abastecimento = ItemCupomFiscal.No_Abastecimento)
                INNER JOIN Abastecimento ON Encerrante.No_Abastecimento = Abastecimento.No_Abastecimento
         SET    Abastecimento.No_Abastecimento = 0
         WHERE  ( ((A.Cd_PessoaUsuaria)= {}) AND
                  ((ItemCupomFiscal.No_CupomFiscal) Is Null) AND
                  ((Encerrante.Dt_Emissao)=Date()) ) ; )",
                tenant()));
  });
}

}  // namespace posto
