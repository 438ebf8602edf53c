// What a customer owes: sums of open sales, bills and cheques; time to pay; interest.
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/masterdata/DALCliente.h"
#include "posto/masterdata/sums.h"
#include "posto/services/clock.h"
#include "posto/types/rounding.h"

namespace posto {
namespace {

constexpr int kDaysOfOpenCheques = 5;  // in which a bank may still give a cheque back
constexpr int kDaysOfMonth = 30;       // of interest
constexpr int kCents = 2;

std::int32_t days_between(Date from, Date to) {
  return static_cast<std::int32_t>((to.day().millis() - from.day().millis()) / Date::kMillisPerDay);
}

Currency with_interest(Currency balance, std::int32_t days, Currency percent_a_month) {
  const double rate = percent_a_month.as_double() / 100 / kDaysOfMonth;
  return Currency(Round(balance.as_double() + balance * days * rate, kCents));
}

// Delay and interest of the current bill.
void update_bill(Recordset& bill, Date day, std::int32_t days_of_grace) {
  const Currency balance = bill["Vl_Saldo"].as<Currency>();
  if (bill["Dt_VencPro"].is_null()) {
    bill["Vl_ComJuros"] = balance;
    bill["Qt_DiasAtraso"] = Null{};
    return;
  }
  const std::int32_t delay = days_between(bill["Dt_VencPro"].as<Date>(), day);
  const bool has_grace = bill["Fl_LiberarXdiasJuros"].value_or(std::int32_t{0}) != 0;
  const std::int32_t days = has_grace ? delay - days_of_grace : delay;
  bill["Vl_ComJuros"] = days > 0 ? with_interest(balance, days, bill["Tx_Mora"].value_or(Currency())) : balance;
  bill["Qt_DiasAtraso"] = delay;
}

}  // namespace

void DALCliente::VerificarAcumulos() {
  routine("VerificarAcumulos", [&] {
    ObVO->Vl_AcumuloChequeEmitente = recent_cheques("AcumulosChequeEmitente", "Cd_CgcCpf0");
    ObVO->Vl_AcumuloChequeTerceiro = recent_cheques("AcumulosChequeTerceiro", "Cd_CgcCpf1");
    ObVO->Vl_AcumuloAFaturar = AcumulosAFaturar();
    ObVO->Vl_AcumuloFaturado = AcumulosFaturados();
  });
}

Currency DALCliente::recent_cheques(std::string_view operation, std::string_view tax_number_column) {
  return routine(operation, [&] {
    Currency sum;
    if (ObVO->Cd_CgcCpf.empty()) return sum;
    Recordset groups = read(sql(R"(
        SELECT   TipoRecebimento.Fl_eCheque, Sum(Recebimento.Vl_Recebimento) AS SomaDeVl_Recebimento
        FROM     Recebimento
                 RIGHT JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
        WHERE    Recebimento.{} = '{}' And
                 Recebimento.Dt_Recebimento >= {}
        GROUP BY TipoRecebimento.Fl_eCheque)",
                                tax_number_column, ObVO->Cd_CgcCpf,
                                DateSemHoraToSql(clock_now().day().plus_days(-kDaysOfOpenCheques), *ObVOSistema)));
    for (; !groups.EOF(); groups.MoveNext()) {
      const bool cheques = groups["Fl_eCheque"].value_or(std::int32_t{0}) != 0;
      if (cheques) sum += groups["SomaDeVl_Recebimento"].value_or(Currency());
    }
    return sum;
  });
}

Currency DALCliente::AcumulosAFaturar() {
  return routine("AcumulosAFaturar", [&] {
    if (ObVO->Cd_Cliente == 0) return Currency();
    return sum_of_rows(read(sql(R"(
        SELECT   Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
        FROM     CupomFiscal
        GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_Cliente, CupomFiscal.Fl_Fechada, CupomFiscal.Tp_Venda
        HAVING   CupomFiscal.Cd_PessoaUsuaria = {} And
                 CupomFiscal.Cd_Cliente = {} And
                 CupomFiscal.Fl_Fechada = 'N' And
                 CupomFiscal.Tp_Venda Between 10 And 19)",
                                company(), ObVO->Cd_Cliente)),
                       "SomaDeVl_TotalLiquido");
  });
}

Currency DALCliente::AcumulosFaturados() {
  return routine("AcumulosFaturados", [&] {
    return sum_of_rows(read(sql(R"(
        SELECT   Sum(ContaAReceber.Vl_Saldo) AS SomaDeVl_Saldo
        FROM     ContaAReceber
        GROUP BY ContaAReceber.Cd_PessoaUsuaria, ContaAReceber.Cd_Pessoa, ContaAReceber.No_SituacaoPagamento
        HAVING   ContaAReceber.Cd_PessoaUsuaria = {} And
                 ContaAReceber.Cd_Pessoa = {} And
                 ContaAReceber.No_SituacaoPagamento = 1)",
                                company(), ObVO->Cd_Cliente)),
                       "SomaDeVl_Saldo");
  });
}

Currency DALCliente::ValorDasContasVencida() {
  return routine("ValorDasContasVencida", [&] {
    return sum_of_rows(read(sql(R"(
        SELECT Sum(ContaAReceber.Vl_Saldo) AS SomaDeVl_Saldo
        FROM   ContaAReceber
        WHERE  ContaAReceber.Cd_PessoaUsuaria = {} AND
               ContaAReceber.Cd_Pessoa= {} AND
               ContaAReceber.No_SituacaoPagamento = 1 AND
               ContaAReceber.Dt_VencPro < {})",
                                company(), ObVO->Cd_Cliente, DateSemHoraToSql(clock_now(), *ObVOSistema))),
                       "SomaDeVl_Saldo");
  });
}

bool DALCliente::concederPrazo(Date Dt_Prazo) {
  return routine("concederPrazo", [&] {
    if (Dt_Prazo < clock_now().day()) {
      raise_described(erro::kRuleViolation, "Não é permitido informar uma data passada.");
    }
    const std::string day = DateSemHoraToSql(Dt_Prazo, *ObVOSistema);
    execute(sql(R"(
        UPDATE ContaAReceber
        Set    Dt_BloqueioCredito = {}
        WHERE  Cd_Pessoa = {} And
               Dt_BloqueioCredito < {})",
                day, ObVO->Cd_Cliente, day));
    return true;
  });
}

bool DALCliente::atualizarDebito(Date Dt_Atualizacao, std::int32_t Qt_DiasSemCobrarJuros) {
  return routine("atualizarDebito", [&] {
    // The key in front: without it the record set could not be written.
    Recordset bills = open(sql(R"(
        SELECT Cd_PessoaUsuaria, Cd_ContaAReceber, Dt_VencPro, Vl_Saldo, Fl_LiberarXdiasJuros, Tx_Mora,
               Qt_DiasAtraso, Vl_ComJuros, Cd_PessoaAvalista, Ic_Avalista
        FROM   ContaAReceber
        WHERE  ContaAReceber.Vl_Saldo > 0 And
               (ContaAReceber.Cd_Pessoa = {} Or ContaAReceber.Cd_PessoaAvalista = {}))",
                               ObVO->Cd_Cliente, ObVO->Cd_Cliente));
    for (; !bills.EOF(); bills.MoveNext()) {
      update_bill(bills, Dt_Atualizacao, Qt_DiasSemCobrarJuros);
      if (Field guarantor = bills["Cd_PessoaAvalista"]; !guarantor.is_null()) {
        bills["Ic_Avalista"] = guarantor.as<std::int32_t>() == ObVO->Cd_Cliente;
      }
      bills.Update();
    }
    bills.Close();
    return true;
  });
}

}  // namespace posto
