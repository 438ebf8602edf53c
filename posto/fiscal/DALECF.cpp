#include "posto/fiscal/DALECF.h"

#include "posto/core/criptografia.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/number_pattern.h"

namespace posto {

void DALECF::CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao) {
  routine("CarregarComboBox", [&] {
    ListItems items(Ob_ComboBox);
    items.clear();
    Recordset printers = detached(sql(R"(
        SELECT No_Impressora, No_SerieCriptografadaBLOWFISH
        FROM ECF
        {}
        ORDER BY No_Impressora )",
                                      Ds_Condicao));
    if (printers.EOF()) return;
    items.add("", std::int32_t{0});
    for (; !printers.EOF(); printers.MoveNext()) {
      const Variant serial = printers["No_SerieCriptografadaBLOWFISH"].Value();
      if (serial.is_null()) continue;
      const auto number = printers["No_Impressora"].as<std::int32_t>();
      items.add(
          "ECF:" + format_number(number, "000") + "-SERIE:" + Criptografia::Desencriptar(serial.as<std::string>()),
          number);
    }
  });
}

Recordset DALECF::Rs_VolumeCombustiveisVendidos(Date Dt_Emissao) {
  return routine("Rs_VolumeCombustiveisVendidos", [&] {
    return detached(sql(R"(
        SELECT Produto.Nm_Produto, ItemCupomFiscal.Cd_Bomba, Sum(ItemCupomFiscal.Qt_Unidade) As SomaDeQt_Unidade
        FROM ItemCupomFiscal
        INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
        And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
        And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
        And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
        INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
        WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And CupomFiscal.Dt_Movimento={}
        And CupomFiscal.No_Impressora={}
        And Produto.Fl_VendBomba <> 0
        GROUP BY Produto.Nm_Produto, ItemCupomFiscal.Cd_Bomba)",
                        ObVO->Cd_PessoaUsuaria, DateSemHoraToSql(Dt_Emissao, *ObVOSistema), ObVO->No_Impressora));
  });
}

Date DALECF::DataUltimoMovimento() {
  return routine("DataUltimoMovimento", [&] {
    Recordset latest = read(sql(R"(
        SELECT Max(Dt_Movimento) As Dt_Emissao
        FROM CupomFiscal
        WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And CupomFiscal.No_Impressora = {})",
                                ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora));
    return latest.EOF() ? Date() : latest["Dt_Emissao"].value_or(Date());
  });
}

Recordset DALECF::Rs_Registro60Analitico(Date Dt_Movimento) {
  return routine("Rs_Registro60Analitico", [&] { return reported("ECFRegistro60Analitico", Dt_Movimento); });
}

Recordset DALECF::Rs_Registro60Mestre(Date Dt_Movimento) {
  return routine("Rs_Registro60Mestre", [&] { return reported("ECFRegistro60Mestre", Dt_Movimento); });
}

Recordset DALECF::reported(std::string_view table, Date day) {
  return detached(sql(R"(
      SELECT *
      FROM {}
      WHERE Cd_PessoaUsuaria = {}
      And No_Impressora = {}
      And Dt_Movimento = {})",
                      table, ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, DateSemHoraToSql(day, *ObVOSistema)));
}

Recordset DALECF::rsIdentificacaoECF(std::string_view Ds_TipoECF, std::string_view Ds_MarcaECF,
                                     std::string_view Ds_ModeloECF, std::string_view Ds_VersaoSoftwareBasicoECF) {
  return routine("rsIdentificacaoECF", [&] {
    return detached(sql(R"(
        SELECT *
        FROM IdentificacaoECF
        WHERE Ds_TipoECF = '{}'
        And Ds_MarcaECF = '{}'
        And Ds_ModeloECF = '{}'
        And Ds_VersaoSoftwareBasicoECF = '{}')",
                        Ds_TipoECF, Ds_MarcaECF, Ds_ModeloECF, Ds_VersaoSoftwareBasicoECF));
  });
}

void DALECF::IncluirLogDocumentoEmitidoECF(Date Dt_Emissao, std::int32_t No_COO, std::int32_t No_ContadorGNF,
                                           std::int32_t No_ContadorGRG, std::int32_t No_ContadorCDC,
                                           std::string_view Ds_TipoDocumento, Date Dt_Inicio, Date Dt_Fim,
                                           bool Ic_Sangria, bool Ic_Suprimento, Currency Vl_Documento) {
  routine("IncluirLogDocumentoEmitidoECF", [&] {
    ObVOSistema->EntrarRotina("IncluirLogDocumentoEmitidoECF");
    execute(sql(R"(
        INSERT INTO Vr5.dbo.LogDocumentoEmitidoECF
        (Cd_PessoaUsuaria, No_Impressora, Dt_Emissao, No_COO, No_ContadorGNF, No_ContadorGRG, No_ContadorCDC,
        Ds_TipoDocumento, Dt_Inicio, Dt_Fim, Ic_Sangria, Ic_Suprimento, Vl_Documento)
        Values ({}, {}, {}, {}, {}, {}, {}, '{}', {}, {}, {}, {}, {}))",
                ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, DateSemHoraToSql(Dt_Emissao, *ObVOSistema), No_COO,
                No_ContadorGNF, No_ContadorGRG, No_ContadorCDC, Ds_TipoDocumento,
                DateComHoraToSql(Dt_Inicio, *ObVOSistema), DateComHoraToSql(Dt_Fim, *ObVOSistema), BitToSql(Ic_Sangria),
                BitToSql(Ic_Suprimento), MoneyToSql(Vl_Documento, 2)));
    ObVOSistema->SairRotina("IncluirLogDocumentoEmitidoECF");
  });
}

Recordset DALECF::rsRecebimentosPorPeriodo(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsCuponsPorPeriodo", [&] {
    Recordset sums;
    try {
      sums = detached(receipts_of_period(Dt_Inicial, Dt_Final));
    } catch (const Erro&) {
      try {
        drop_receipts_of_period();
      } catch (const Erro&) {
        // The batch did not come as far as its table; its own failure is the one to tell.
      }
      throw;
    }
    drop_receipts_of_period();
    return sums;
  });
}

// A batch over a temporary table, which would stay with the connection and be met by the next call.
std::string DALECF::receipts_of_period(Date Dt_Inicial, Date Dt_Final) const {
  const std::string first = DateSemHoraToSql(Dt_Inicial, *ObVOSistema);
  const std::string last = DateSemHoraToSql(Dt_Final, *ObVOSistema);
  return sql(R"(
        CREATE TABLE #RecebimentoCaixa (
        Nm_TipoRecebimento varchar(40) NOT NULL,
        Vl_RecebimentoFiscal money NOT NULL,
        Vl_RecebimentoNaoFiscal money NOT NULL
        );
        INSERT INTO #RecebimentoCaixa
        SELECT TipoRecebimento.Nm_TipoRecebimento,
        Case when Tp_DocDebito = 20 then Vl_Recebimento -- Pagamento de Venda
        Else 0 End As Vl_RecebimentoFiscal,
        0 As Vl_RecebimentoNaoFiscal
        FROM Recebimento
        INNER JOIN TipoRecebimento On TipoRecebimento.Cd_TipoRecebimento = Recebimento.Cd_TipoRecebimento
        INNER JOIN RecebimentoCupom on RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
        And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
        WHERE RecebimentoCupom.Cd_PessoaUsuaria = {}
        And RecebimentoCupom.No_Impressora = {}
        And RecebimentoCupom.Dt_Emissao Between {} And {}
        INSERT INTO #RecebimentoCaixa
        SELECT TipoRecebimento.Nm_TipoRecebimento,
        0 As Vl_RecebimentoFiscal,
        Vl_Recebimento As Vl_RecebimentoNaoFiscal
        FROM Recebimento
        INNER JOIN TipoRecebimento On TipoRecebimento.Cd_TipoRecebimento = Recebimento.Cd_TipoRecebimento
        WHERE Recebimento.Cd_PessoaUsuaria = {}
        And Recebimento.Dt_Lancamento Between {} And {}
        And Recebimento.Ic_Suprimento = 1;
        SELECT Nm_TipoRecebimento,
        Sum(Vl_RecebimentoFiscal) as Vl_RecebimentoFiscal,
        SUM(Vl_RecebimentoNaoFiscal) as Vl_RecebimentoNaoFiscal
        FROM #RecebimentoCaixa
        GROUP BY Nm_TipoRecebimento)",
             ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, first, last, ObVO->Cd_PessoaUsuaria, first, last);
}

void DALECF::drop_receipts_of_period() { execute("DROP TABLE #RecebimentoCaixa"); }

void DALECF::AtualizarValorGT(Currency Vl_GTotal) {
  routine("AtualizarValorGT", [&] {
    execute(sql(R"(
        UPDATE ECF
        SET Ds_GTotalCriptografado = '{}'
        WHERE Cd_PessoaUsuaria = {}
        And No_Impressora = {})",
                Criptografia::Encriptar(Variant(Vl_GTotal).as<std::string>()), ObVO->Cd_PessoaUsuaria,
                ObVO->No_Impressora));
  });
}

Currency DALECF::ObterGTotalDeCupons() {
  return routine("ObterGTotalDeCupons", [&] {
    Recordset highest = read(sql(R"(
        SELECT Isnull(Max(Vl_GTotal),0) As UltimoVl_GTotal
        FROM CupomFiscal
        WHERE Cd_PessoaUsuaria = {}
        And No_Impressora = {})",
                                 ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora));
    return highest.EOF() ? Currency() : highest["UltimoVl_GTotal"].value_or(Currency());
  });
}

}  // namespace posto
