#include "posto/fiscal/printer_day_record.h"

#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "posto/types/number_pattern.h"

namespace posto {

template <class VO, const Description& kDescription>
std::string PrinterDayRecord<VO, kDescription>::day_literal() const {
  return DateSemHoraToSql(this->ObVO->Dt_Movimento, *this->ObVOSistema);
}

template <class VO, const Description& kDescription>
void PrinterDayRecord<VO, kDescription>::take(Recordset& record, bool reset_when_missing) {
  this->require_record(record, kDescription.table, reset_when_missing);
  read_record(record, this->vo());
  record.Close();
}

template <class VO, const Description& kDescription>
VO& PrinterDayRecord<VO, kDescription>::ConsultarUltimo(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  this->routine("ConsultarUltimo", [&] {
    constexpr std::string_view kTable = kDescription.table;
    const VO& vo = *this->ObVO;
    // Detached, so that the last row is reached whatever cursor the settings name.
    Recordset record = this->detached(sql(R"(
         SELECT {}.*
         FROM {}
         WHERE ( {}.Cd_PessoaUsuaria = {}
         And {}.No_Impressora={}
         And {}.Dt_Movimento <= {} )
         ORDER BY {}.Dt_Movimento ;)",
                                          kTable, kTable, kTable, vo.Cd_PessoaUsuaria, kTable, vo.No_Impressora, kTable,
                                          day_literal(), kTable));
    if (!record.EOF()) record.MoveLast();
    take(record, Ic_RestaurarDefaulSeNaoEcontrarRegistro);
  });
  return *this->ObVO;
}

template <class VO, const Description& kDescription>
VO& PrinterDayRecord<VO, kDescription>::ConsultarAnterior(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  this->routine("ConsultarAnterior", [&] {
    constexpr std::string_view kTable = kDescription.table;
    const VO& vo = *this->ObVO;
    Recordset record = this->open(sql(R"(
        SELECT TOP 1 {}.*
        FROM {}
        WHERE {}.Cd_PessoaUsuaria = {}
        And {}.No_Impressora={}
        And {}.Dt_Movimento < {}
        ORDER BY {}.Dt_Movimento desc)",
                                      kTable, kTable, kTable, vo.Cd_PessoaUsuaria, kTable, vo.No_Impressora, kTable,
                                      day_literal(), kTable));
    take(record, Ic_RestaurarDefaulSeNaoEcontrarRegistro);
  });
  return *this->ObVO;
}

template <class VO, const Description& kDescription>
Currency PrinterDayRecord<VO, kDescription>::ConsultaVendaParaAliquota(Currency Pc_Aliquota) {
  return this->routine("ConsultaVendaParaAliquota", [&] {
    const VO& vo = *this->ObVO;
    Recordset total = this->read(sql(R"(
        SELECT Sum(Round(A.Qt_Unidade * (A.Vl_UnitVenda - A.Vl_AltFinalCupom),2)) As Vl_TotalVenda
        FROM ItemCupomFiscal A
        INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
        And A.No_Impressora = B.No_Impressora
        And A.No_CupomFiscal = B.No_CupomFiscal
        And A.Dt_Emissao = B.Dt_Emissao
        WHERE B.Cd_PessoaUsuaria = {}
        And B.No_Impressora = {}
        And B.Dt_Movimento = {}
        And A.Tx_Icms = {})",
                                     vo.Cd_PessoaUsuaria, vo.No_Impressora, day_literal(),
                                     SubstituirVirgulaPorPonto(format_number(Pc_Aliquota, "00.00"))));
    return total.EOF() ? Currency() : total["Vl_TotalVenda"].value_or(Currency());
  });
}

template class PrinterDayRecord<VOReducaoZ, kReducaoZ>;
template class PrinterDayRecord<VOMapaResumoECF, kMapaResumoECF>;

}  // namespace posto
