// What the user company does about its customers: overdue credit, special prices, the summary of receivables.
#include "posto/core/sql.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/masterdata/special_prices.h"
#include "posto/services/clock.h"

namespace posto {
namespace {

// States of No_SituacaoCredito that a pass sets.
constexpr int kBlocked = 3, kCancelled = 4;

// Whose state it is, by the columns of an overdue bill: a guarantor is blocked with the customer, and never cancelled.
constexpr std::string_view kCustomerAndGuarantor[] = {"Cd_Pessoa", "Cd_PessoaAvalista"};
constexpr std::string_view kCustomer[] = {"Cd_Pessoa"};

}  // namespace

bool DALEmpresaUsuaria::BloqueiaAutomaticamenteCreditoClienteEmAtraso() {
  return routine("BloqueiaAutomaticamenteCreditoClienteEmAtraso", [&] {
    raise_credit_state(overdue("Dt_BloqueioCredito Between '1980-01-01' And GetDate()",
                               "No_SituacaoCredito = 2 And\r         Fl_BloqAutCredito = 1"),
                       kBlocked, kCustomerAndGuarantor);
    const Date today = clock_now();
    const Date limit = today.plus_days(-ObVOSistema->ObVOEmpresaUsuaria->Qt_DiasCancelamentoCredito);
    raise_credit_state(overdue("Dt_BloqueioCredito <= " + day(today) + " And\r         Dt_VencPro <= " + day(limit),
                               "No_SituacaoCredito <> 4 And\r         Fl_CanCredito = 1"),
                       kCancelled, kCustomer);
    return true;
  });
}

// Customers with their guarantors, by the dates of a bill and the state of the customer.
Recordset DALEmpresaUsuaria::overdue(std::string_view dates, std::string_view customer) {
  return detached(sql(R"(
      SELECT   Cd_Pessoa, Cd_PessoaAvalista
      FROM     ContaAReceber
               LEFT JOIN Cliente On ContaAReceber.Cd_Pessoa = Cliente.Cd_Cliente
      WHERE    {} And
               No_SituacaoPagamento <> 3 And
               Vl_Saldo > 0 And
               {}
      GROUP BY Cd_Pessoa, Cd_PessoaAvalista
      ORDER BY Cd_Pessoa)",
                      dates, customer));
}

void DALEmpresaUsuaria::raise_credit_state(Recordset customers, int state, Names persons) {
  for (; !customers.EOF(); customers.MoveNext()) {
    for (std::string_view person : persons) {
      if (customers[person].is_null()) continue;
      execute(sql(R"(
          UPDATE Cliente
          Set    No_SituacaoCredito = {}
          WHERE  Cd_Cliente = {} And
                 No_SituacaoCredito < {})",
                  state, customers[person].as<std::int32_t>(), state));
    }
  }
}

bool DALEmpresaUsuaria::AtualizarPrecoCondicaoEspecial() {
  return routine("AtualizarPrecoCondicaoEspecial", [&] {
    update_special_prices(connection(), company(), 0);
    return true;
  });
}

void DALEmpresaUsuaria::GerarResumoContaAReceber(Date Dt_Inicial, Date Dt_Final) {
  routine("GerarResumoContaAReceber", [&] {
    const std::string first = day(Dt_Inicial), last = day(Dt_Final), today = day(clock_now());
    execute(sql(R"(
        DELETE FROM ResumoContaAReceber
        WHERE  Cd_PessoaUsuaria = {} And
               Dt_Inicial = {} And
               Dt_Final = {})",
                company(), first, last));
    execute(sql(R"(
        INSERT INTO ResumoContaAReceber
               (Cd_PessoaUsuaria, Dt_Inicial, Dt_Final, Cd_Pessoa, Qt_Contas, Vl_Debito, Vl_DesPag, Vl_AcrPag,
                Vl_Pagamentos, Vl_Saldo, Vl_Vencido, Dt_VencimentoMaisAntigo)
        SELECT   Cd_PessoaUsuaria, {}, {}, Cd_Pessoa, Count(*), Sum(Vl_Debito), Sum(Vl_DesPag), Sum(Vl_AcrPag),
                 Sum(Vl_Pagamentos), Sum(Vl_Saldo),
                 Sum(Case When Dt_VencPro < {} And Vl_Saldo > 0 Then Vl_Saldo Else 0 End),
                 Min(Case When Vl_Saldo > 0 Then Dt_VencPro Else Null End)
        FROM     ContaAReceber
        WHERE    Cd_PessoaUsuaria = {} And
                 Dt_VencPro Between {} And {} And
                 Not Cd_Pessoa Is Null
        GROUP BY Cd_PessoaUsuaria, Cd_Pessoa)",
                first, last, today, company(), first, last));
  });
}

}  // namespace posto
