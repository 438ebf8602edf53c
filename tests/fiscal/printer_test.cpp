#include "posto/core/criptografia.h"
#include "posto/fiscal/DALECF.h"
#include "posto/fiscal/catalogue.h"
#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

class Printer : public FiscalTest {
 protected:
  Printer() { select(2); }
  void select(std::uint8_t number) {
    *printers_.ObVO = {};
    printers_.ObVO->Cd_PessoaUsuaria = 1;
    printers_.ObVO->No_Impressora = number;
  }
  void add_printer(std::uint8_t number, std::string_view serial) {
    select(number);
    printers_.ObVO->No_SerieCriptografadaBLOWFISH = serial.empty() ? "" : Criptografia::Encriptar(serial);
    printers_.Incluir();
    if (serial.empty())
      run("UPDATE ECF SET No_SerieCriptografadaBLOWFISH = Null WHERE No_Impressora = " + std::to_string(number));
  }
  // A coupon of a business day, with the grand total behind it.
  void add_coupon(std::uint8_t printer, std::int32_t number, std::string_view business_day, double grand_total = 0) {
    VOCupomFiscal v = coupon(printer, number);
    v.Vl_GTotal = Currency(grand_total);
    add(v);
    run(fmt::format("UPDATE CupomFiscal SET Dt_Movimento = '{}' WHERE No_Impressora = {} And No_CupomFiscal = {}",
                    business_day, printer, number));
  }
  DALECF printers_{settings_};
};

TEST_F(Printer, ListShowsDecipheredSerials) {
  MemoryList list;
  printers_.CarregarComboBox(list);
  EXPECT_TRUE(list.items().empty());
  add_printer(12, "BE0506");
  add_printer(3, "");
  add_printer(1, "BE0101");
  using Items = std::vector<MemoryList::Item>;
  printers_.CarregarComboBox(list);
  EXPECT_EQ(list.items(), (Items{{"", 0}, {"ECF:001-SERIE:BE0101", 1}, {"ECF:012-SERIE:BE0506", 12}}));
  printers_.CarregarComboBox(list, "WHERE No_Impressora > 1");
  EXPECT_EQ(list.items(), (Items{{"", 0}, {"ECF:012-SERIE:BE0506", 12}}));
  run("UPDATE ECF SET No_SerieCriptografadaBLOWFISH = 'BE0101' WHERE No_Impressora = 1");
  const auto failure = failure_of([&] { printers_.CarregarComboBox(list); });
  ASSERT_TRUE(failure);
  EXPECT_TRUE(failure->source().ends_with(" -> Criptografia.Desencriptar -> DALECF.CarregarComboBox"))
      << failure->source();
}

TEST_F(Printer, FuelOfABusinessDayByNozzle) {
  const auto fuel = add_product("GASOLINA C", 1, true), oil = add_product("OLEO 20W50");
  add_coupon(2, 1, "2026-11-23");
  add_coupon(2, 2, "2026-11-23");
  add_coupon(2, 3, "2026-11-24");
  add_coupon(1, 1, "2026-11-23");
  const auto sell = [&](std::uint8_t printer, std::int32_t number, std::uint8_t item, std::int32_t product,
                        double quantity, std::uint8_t nozzle) {
    VOItemCupomFiscal v = line(coupon(printer, number), item, product, quantity);
    v.Cd_Bomba = nozzle;
    add(v);
  };
  sell(2, 1, 1, fuel, 10.5, 4);
  sell(2, 1, 2, fuel, 2.25, 5);
  sell(2, 1, 3, oil, 1, 0);
  sell(2, 2, 1, fuel, 20, 4);
  sell(2, 3, 1, fuel, 100, 4);
  sell(1, 1, 1, fuel, 1000, 4);
  run("UPDATE ItemCupomFiscal SET Ic_Excluido = -1 WHERE No_CupomFiscal = 2");
  std::vector<std::string> found;
  for (Recordset rs = printers_.Rs_VolumeCombustiveisVendidos(day("2026-11-23")); !rs.EOF(); rs.MoveNext()) {
    found.push_back(rs["Nm_Produto"].as<std::string>() + " " + rs["Cd_Bomba"].as<std::string>() + " " +
                    rs["SomaDeQt_Unidade"].as<std::string>());
  }
  std::ranges::sort(found);
  EXPECT_EQ(found, (std::vector<std::string>{"GASOLINA C 4 30.5", "GASOLINA C 5 2.25"}));
}

TEST_F(Printer, LastBusinessDayAndGrandTotalOfItsCoupons) {
  EXPECT_TRUE(printers_.DataUltimoMovimento().empty());
  EXPECT_EQ(printers_.ObterGTotalDeCupons(), Currency());
  add_coupon(2, 1, "2026-11-23", 1000.25);
  add_coupon(2, 2, "2026-11-24", 987654.32);
  add_coupon(2, 3, "2026-11-22", 987654.31);
  add_coupon(1, 1, "2026-11-30", 2000000);
  run("UPDATE CupomFiscal SET Ic_Excluido = -1 WHERE No_CupomFiscal = 2");
  EXPECT_EQ(printers_.DataUltimoMovimento(), day("2026-11-24"));
  EXPECT_EQ(printers_.ObterGTotalDeCupons(), Currency(987654.32));
}

TEST_F(Printer, GrandTotalIsStoredEnciphered) {
  add_printer(1, "BE0101");
  add_printer(2, "BE0202");
  select(1);
  printers_.AtualizarValorGT(Currency::parse("987654.32"));
  EXPECT_NE(printers_.Consultar().Ds_GTotalCriptografado, "987654.32");
  EXPECT_EQ(Criptografia::Desencriptar(printers_.ObVO->Ds_GTotalCriptografado), "987654.32");
  select(2);
  EXPECT_EQ(printers_.Consultar().Ds_GTotalCriptografado, "");
}

TEST_F(Printer, DocumentsAreLoggedInTheirOwnDatabase) {
  const auto log = [&](std::int32_t count, double value, bool withdrawal) {
    printers_.IncluirLogDocumentoEmitidoECF(day("2026-11-23"), count, 77, 8, 9, "CN", day("2026-11-23 22:10:00"),
                                            day("2026-11-23 22:10:07"), withdrawal, !withdrawal, Currency(value));
  };
  const auto statements = statements_of([&] { log(1532, 150.1, true); });
  EXPECT_TRUE(statements.at(0).starts_with("INSERT INTO Vr5.dbo.LogDocumentoEmitidoECF|")) << statements[0];
  log(1533, 0.2, false);
  EXPECT_EQ(rows("SELECT No_Impressora, No_COO, No_ContadorGNF, No_ContadorGRG, No_ContadorCDC, Ds_TipoDocumento, "
                 "Ic_Sangria, Ic_Suprimento, Vl_Documento, Dt_Emissao, Dt_Inicio, Dt_Fim "
                 "FROM LogDocumentoEmitidoECF WHERE No_COO = 1532"),
            "2,1532,77,8,9,CN,True,False,150.1,2026-11-23 00:00:00,2026-11-23 22:10:00,2026-11-23 22:10:07\n");
  EXPECT_EQ(rows("SELECT Sum(Vl_Documento) FROM Vr5.dbo.LogDocumentoEmitidoECF WHERE Cd_PessoaUsuaria = 1"), "150.3\n");
  EXPECT_EQ(routines_, (std::vector<std::string>{"+IncluirLogDocumentoEmitidoECF", "-IncluirLogDocumentoEmitidoECF",
                                                 "+IncluirLogDocumentoEmitidoECF", "-IncluirLogDocumentoEmitidoECF"}));
}

TEST_F(Printer, WhatItReportedAndItsModel) {
  DALECFRegistro60Mestre totals(settings_);
  totals.ObVO->Cd_PessoaUsuaria = 1;
  totals.ObVO->No_Impressora = 2;
  totals.ObVO->Dt_Movimento = day("2026-11-23");
  totals.ObVO->Vl_VendaBruta = Currency(512.33);
  totals.Incluir();
  DALECFRegistro60Analitico taxes(settings_);
  taxes.ObVO->Cd_PessoaUsuaria = 1;
  taxes.ObVO->No_Impressora = 2;
  taxes.ObVO->Dt_Movimento = day("2026-11-23");
  for (const char* kind : {"F", "1800"}) {
    taxes.ObVO->Ds_TipoRegistro = kind;
    taxes.Incluir();
  }
  EXPECT_EQ(printers_.Rs_Registro60Mestre(day("2026-11-23"))["Vl_VendaBruta"].as<Currency>(), Currency(512.33));
  EXPECT_EQ(printers_.Rs_Registro60Analitico(day("2026-11-23")).RecordCount(), 2);
  EXPECT_TRUE(printers_.Rs_Registro60Mestre(day("2026-11-24")).EOF());
  EXPECT_TRUE(printers_.Rs_Registro60Analitico(day("2026-11-24")).EOF());

  run("INSERT INTO IdentificacaoECF (Ds_TipoECF, Ds_MarcaECF, Ds_ModeloECF, Ds_VersaoSoftwareBasicoECF, "
      "Cd_IdentificacaoECF) Values ('ECF-IF', 'MARCA', 'MODELO 20', '03.25', '031302')");
  Recordset model = printers_.rsIdentificacaoECF("ECF-IF", "MARCA", "MODELO 20", "03.25");
  EXPECT_EQ(model["Cd_IdentificacaoECF"].as<std::string>(), "031302");
  EXPECT_TRUE(printers_.rsIdentificacaoECF("ECF-IF", "MARCA", "MODELO 20", "03.26").EOF());
}

class ReceiptsOfAPeriod : public Printer {
 protected:
  void add_payment(std::int32_t number, int kind, double value, int document = 20, std::string_view day = "2026-11-10",
                   bool is_float = false) {
    run(
        fmt::format("INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Cd_TipoRecebimento, "
                    "Vl_Recebimento, Dt_Lancamento, Ic_Suprimento) Values (1, {}, {}, {}, {}, '{}', {})",
                    number, document, kind, value, day, is_float ? 1 : 0));
  }
};

TEST_F(ReceiptsOfAPeriod, SalesAreFiscalAndFloatsAreNot) {
  run("INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (5, 'DINHEIRO')"
      "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (2, 'CHEQUE')");
  const auto paid = [&](std::uint8_t printer, std::int32_t number, std::string_view issued, std::int32_t receipt) {
    add_link(coupon(printer, number, issued), receipt);
  };
  add_payment(1, 5, 110.1);
  paid(2, 1, "2026-11-01", 1);
  add_payment(2, 5, 0.2);
  paid(2, 2, "2026-11-30", 2);
  add_payment(3, 2, 50);
  paid(2, 3, "2026-11-10", 3);
  paid(2, 4, "2026-11-10", 3);  // a cheque for two coupons counts with each
  add_payment(4, 2, 7, 10);     // pays a receivable: listed with 0
  paid(2, 5, "2026-11-10", 4);
  add_payment(5, 5, 1000);
  paid(1, 1, "2026-11-10", 5);  // of another printer
  add_payment(6, 5, 2000);
  paid(2, 6, "2026-12-01", 6);  // behind the period
  add_payment(7, 5, 150, 0, "2026-11-30", true);
  add_payment(8, 5, 150, 0, "2026-12-01", true);
  for (int time = 1; time <= 2; ++time) {
    Recordset kinds = printers_.rsRecebimentosPorPeriodo(day("2026-11-01"), day("2026-11-30"));
    EXPECT_EQ(kinds.RecordCount(), 2);
    for (; !kinds.EOF(); kinds.MoveNext()) {
      const bool cash = kinds["Nm_TipoRecebimento"].as<std::string>() == "DINHEIRO";
      EXPECT_EQ(kinds["Vl_RecebimentoFiscal"].as<Currency>(), cash ? Currency(110.3) : Currency(100));
      EXPECT_EQ(kinds["Vl_RecebimentoNaoFiscal"].as<Currency>(), cash ? Currency(150) : Currency());
    }
  }
}

}  // namespace
}  // namespace posto
