#include <functional>
#include <tuple>

#include "posto/fiscal/DALCuponsFiscais.h"
#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

// Every column that an INSERT writes, all different.
VOCupomFiscal full_coupon() {
  VOCupomFiscal v = coupon(2, 1530, "2009-04-03");
  v.No_ContadorCupomFiscal = 1531;
  v.Hr_Emissao = "10:15:42 and a tail";
  v.Vl_TotProd = Currency::parse("112.7856");
  v.Vl_BasCalIcms = Currency::parse("12.5");
  v.Vl_Icms = Currency::parse("2.25");
  v.Vl_TotSer = Currency::parse("3.01");
  v.Vl_BasCalIss = Currency::parse("3.02");
  v.Vl_Iss = Currency::parse("0.15");
  v.Vl_Total = Currency::parse("115.795");
  v.Vl_DesAcr = Currency::parse("-2.79");
  v.Vl_IssRetido = Currency::parse("0.16");
  v.Vl_TotalLiquido = Currency::parse("113");
  v.Tp_Venda = 21;
  v.Cd_Veiculo = "ABC1D234567";
  v.No_Km = 85210;
  v.Tp_ImpNf = 12;
  v.No_NF = 77;
  v.Dt_Fechamento = day("2009-04-30");
  v.FL_Fechada = "N";
  v.Cd_ContaAReceber = 640;
  v.Dt_Vencimento = day("2009-05-10");
  v.Cd_Cfop = "5.929";
  v.Cd_Caixa = 87;
  v.Dt_EfeFechamento = day("2009-05-01");
  v.Cd_FuncionarioEfeFechamento = 42;
  v.Nm_IdCliente = "JOÃO";
  v.Tx_Iss = Currency::parse("5");
  v.Fl_IssRetido = true;
  v.Vl_GTotal = Currency::parse("987654.32");
  v.Qt_ContReducoes = 412;
  v.Vl_Isentas = Currency::parse("1.1");
  v.Vl_NaoTributadoICMS = Currency::parse("1.2");
  v.Vl_SubTrib = Currency::parse("100.29");
  v.Vl_Cancelamentos = Currency::parse("35.4");
  v.Id_CampoExtraCF = "FROTA 7";
  v.Ic_CupomConcluido = true;
  v.Cd_SequenciaNotaServico = 5;
  v.Cd_SequenciaNotaCupom = 6;
  v.Cd_Cliente = 310;
  v.No_Requisicao = 5521;
  v.Ic_BaixaAutomatica = true;
  return v;
}

constexpr std::string_view kInsertHead =
    "INSERT INTO CupomFiscal (Cd_PessoaUsuaria,No_Impressora,No_CupomFiscal,No_ContadorCupomFiscal,Dt_Emissao,"
    "Hr_Emissao,Vl_TotProd,Vl_BasCalIcms,Vl_Icms,Vl_TotSer,Vl_BasCalIss,Vl_Iss,Vl_Total,Vl_DesAcr,Vl_IssRetido,"
    "Vl_TotalLiquido,Tp_Venda,Cd_Veiculo,No_Km,Tp_ImpNf,No_NF,Dt_Fechamento,FL_Fechada,Cd_ContaAReceber,Dt_Vencimento,"
    "Cd_Cfop,Cd_Caixa,Dt_EfeFechamento,Cd_FuncionarioEfeFechamento,Nm_IdCliente,Tx_Iss,Fl_IssRetido,Vl_GTotal,"
    "Qt_ContReducoes,Vl_Isentas,Vl_NaoTributadoICMS,Vl_SubTrib,Vl_Cancelamentos,Id_CampoExtraCF,Ic_CupomConcluido,"
    "Cd_SequenciaNotaServico,Cd_SequenciaNotaCupom,Cd_Cliente,No_Requisicao,Ic_BaixaAutomatica) Values (";

class CouponTest : public FiscalTest {
 protected:
  DALCupomFiscal& asking(const VOCupomFiscal& v) {
    *coupon_.ObVO = v;
    return coupon_;
  }
  // The numbers of the lines or coupons in a record set.
  static std::string numbers(Recordset& rows, std::string_view column = "No_Item") {
    std::string text;
    for (; !rows.EOF(); rows.MoveNext()) text += (text.empty() ? "" : " ") + rows[column].as<std::string>();
    return text;
  }

  DALCupomFiscal coupon_{settings_};
};

TEST_F(CouponTest, WritesEveryColumnWithItsRoutine) {
  const auto full = statements_of([&] { add(full_coupon()); });
  EXPECT_EQ(full.at(0),
            std::string(kInsertHead) +
                "1,2,1530,1531,'2009-04-03','10:15:42',112.786,12.500,2.250,3.01,3.02,0.15,115.80,-2.79,0.16,113.00,"
                "21,'ABC1D234',85210,12,77,'2009-04-30','N',640,'2009-05-10','5.929',87,'2009-05-01',42,'JOÃO',5.00,"
                "-1,987654.32,412,1.10,1.20,100.29,35.40,'FROTA 7',-1,5,6,310,5521,-1)");
  asking({});
  const auto failure = failure_of([&] { coupon_.Incluir(); });
  ASSERT_TRUE(failure);  // a key is required
  EXPECT_EQ(failure->source(), testing::provider() + " -> DALCupomFiscal.Incluir");
  EXPECT_EQ(coupon_.statement(),
            std::string(kInsertHead) +
                "Null,Null,0,0,'1899-12-30','',0.000,0.000,0.000,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0,Null,0,0,Null,"
                "'1899-12-30','',Null,'1899-12-30','',Null,'1899-12-30',Null,'',0.00,0,0.00,0,0.00,0.00,0.00,0.00,'',"
                "0,Null,Null,Null,Null,0)");
}

TEST_F(CouponTest, IsLiveAndUndiscountedWhenItIsNew) {
  add(coupon(1, 10));
  EXPECT_EQ(rows("SELECT Ic_Excluido, Vl_DescontoCF, Dt_Movimento, No_NF, Vl_Isentas FROM CupomFiscal"),
            "False,0,-,-,0\n");
  VOCupomFiscal& read = asking(coupon(1, 10)).Consultar();
  read.Dt_Movimento = day("2026-11-22");
  read.Vl_DescontoCF = Currency::parse("1.25");
  read.Id_Empenho = "  ";
  read.No_SequencialNota = 5;
  coupon_.Alterar();
  EXPECT_EQ(rows("SELECT Dt_Movimento, Vl_DescontoCF, Id_Empenho, No_SequencialNota FROM CupomFiscal"),
            Variant(day("2026-11-22")).as<std::string>() + ",1.25,-,5\n");
  EXPECT_FALSE(coupon_.temCampoSequencial());
  EXPECT_EQ(coupon_.nomeCamposSequencial(), std::vector<std::string>{"No_SequencialNota"});
}

TEST_F(CouponTest, IsDeletedByAMark) {
  add(coupon(1, 10));
  add(line(coupon(1, 10), 1));
  add_receipt(coupon(1, 10), 7, 5);
  asking(coupon(1, 10)).Excluir();
  EXPECT_EQ(rows("SELECT No_CupomFiscal FROM CupomFiscal WHERE Ic_Excluido <> 0"), "10\n");
  EXPECT_EQ(rows("SELECT No_Item FROM ItemCupomFiscal WHERE Ic_Excluido = 0"), "1\n");
  EXPECT_EQ(rows("SELECT No_Recebimento FROM RecebimentoCupom"), "7\n");
  const auto failure = failure_of([&] { asking(coupon(1, 10)).Consultar(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kRecordNotFound);
  EXPECT_EQ(failure->description(), "Registro nao encontrado(CupomFiscal)");
  asking(coupon(1, 10)).Alterar();  // which does not ask for the mark
}

TEST_F(CouponTest, NeedsItsWholeKey) {
  for (auto without : {&VOCupomFiscal::Cd_PessoaUsuaria, &VOCupomFiscal::No_CupomFiscal}) {
    VOCupomFiscal v = coupon(1, 10);
    v.*without = 0;
    expect_failure(erro::kMissingKey, " -> DALCupomFiscal.Excluir,  -> DALCupomFiscal.Excluir",
                   [&] { asking(v).Excluir(); });
    EXPECT_EQ(coupon_.ObVO->No_Impressora, 0);  // reset
    expect_failure(erro::kMissingKey, " -> DALCupomFiscal.ExcluirRecebimentos,  -> DALCupomFiscal.ExcluirRecebimentos",
                   [&] { asking(v).ExcluirRecebimentos(); });
    expect_failure(erro::kMissingKey,
                   " -> DALCupomFiscal.GravarConsumoCombustivel,  -> DALCupomFiscal.GravarConsumoCombustivel",
                   [&] { asking(v).GravarConsumoCombustivel(1); });
    expect_failure(erro::kMissingKey, " -> DALCupomFiscal.AlterarParaFaturado,  -> DALCupomFiscal.AlterarParaFaturado",
                   [&] { asking(v).AlterarParaFaturado(1, {}, 1, {}, {}); });
  }
}

TEST_F(CouponTest, KeepsItsLinesWhateverIsAskedFor) {
  const auto oil = add_product("OLEO"), wash = add_product("LAVAGEM", 2);
  add(coupon(1, 10));
  add(line(coupon(1, 10), 2, wash));
  add(line(coupon(1, 10), 1, oil));
  add(line(coupon(1, 11), 1, oil));
  asking(coupon(1, 10));
  EXPECT_EQ(numbers(coupon_.Rs_ItensTodos()), "1 2");
  EXPECT_EQ(numbers(coupon_.Rs_ItensProdutos()), "1 2");  // the kept rows, from the first on
  EXPECT_TRUE(statements_of([&] { coupon_.ConsultarItens(SomenteServicos, true); }).empty());
  coupon_.Ic_adoRsItensAtualizado = false;
  EXPECT_EQ(numbers(coupon_.Rs_ItensProdutos()), "1");
  EXPECT_EQ(numbers(coupon_.adorsItens()), "1");
  coupon_.ConsultarItens().Close();
  EXPECT_EQ(numbers(coupon_.Rs_ItensServicos()), "2");
  run("UPDATE ItemCupomFiscal SET Ic_Excluido = -1 WHERE No_Item = 2");
  coupon_.Alterar();  // forgets them, as Incluir and Excluir do
  EXPECT_FALSE(coupon_.Ic_adoRsItensAtualizado);
  EXPECT_EQ(numbers(coupon_.Rs_ItensServicos()), "");
  EXPECT_EQ(coupon_.Rs_ItensServicos().State(), 1);  // no rows are kept too
  EXPECT_TRUE(statements_of([&] { coupon_.Rs_ItensServicos(); }).empty());
}

TEST_F(CouponTest, FindsTheLastOfThePrintersDay) {
  for (auto [printer, number, time, issued] :
       {std::tuple{1, 10, "09:00:00", "2026-11-23"}, std::tuple{1, 11, "18:30:00", "2026-11-23"},
        std::tuple{1, 12, "07:59:59", "2026-11-23"}, std::tuple{2, 90, "23:00:00", "2026-11-23"},
        std::tuple{1, 5, "22:00:00", "2026-11-22"}, std::tuple{1, 13, "20:00:00", "2026-11-23"}}) {
    VOCupomFiscal v = coupon(static_cast<std::uint8_t>(printer), number, issued);
    v.Hr_Emissao = time;
    add(v);
  }
  asking(coupon(1, 13)).Excluir();
  asking(coupon(1, 0)).ConsultarUltimo();
  EXPECT_EQ(coupon_.ObVO->No_CupomFiscal, 11);
  const auto failure = failure_of([&] { asking(coupon(3, 0)).ConsultarUltimo(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), "Registro nao encontrado(CupomFiscal)");
  EXPECT_EQ(coupon_.ObVO->No_Impressora, 3);
}

TEST_F(CouponTest, MovesItsReceiptsToItsShift) {
  VOCupomFiscal v = coupon(1, 10);
  v.Cd_Caixa = 5;
  add_receipt(v, 1, 10, 4);
  add_receipt(coupon(1, 11), 2, 10, 4);
  add(v);
  EXPECT_EQ(rows("SELECT No_Recebimento, Cd_Caixa FROM Recebimento ORDER BY No_Recebimento"), "1,5\n2,4\n");
  asking(v).ObVO->Cd_Caixa = 6;
  coupon_.Alterar();
  EXPECT_EQ(rows("SELECT No_Recebimento, Cd_Caixa FROM Recebimento ORDER BY No_Recebimento"), "1,6\n2,4\n");
}

TEST_F(CouponTest, SumsAndDeletesItsReceipts) {
  run("INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (5, 'DINHEIRO')");
  EXPECT_EQ(asking(coupon(1, 10)).ConsultarTotalRecebimentos(), Currency());
  add_receipt(coupon(1, 10), 1, 10.5);
  add_receipt(coupon(1, 10), 2, 0.25);
  add_receipt(coupon(1, 11), 3, 100);
  EXPECT_EQ(coupon_.ConsultarTotalRecebimentos(), Currency::parse("10.75"));
  Recordset receipts = coupon_.adorsRecebimentos();
  EXPECT_EQ(receipts["Nm_TipoRecebimento"].as<std::string>(), "DINHEIRO");
  EXPECT_EQ(numbers(receipts, "No_Recebimento"), "1 2");
  EXPECT_TRUE(coupon_.ExcluirRecebimentos());  // of a coupon without a record, too
  EXPECT_EQ(rows("SELECT No_Recebimento FROM Recebimento"), "3\n");
  EXPECT_EQ(rows("SELECT No_Recebimento FROM RecebimentoCupom"), "3\n");
}

TEST_F(CouponTest, OpenCouponsOfAPrinterCountFromADayOnFinishedOrNot) {
  for (auto [printer, number, moved] : {std::tuple{1, 12, "2026-11-23"}, std::tuple{1, 11, "2026-11-24"},
                                        std::tuple{1, 10, "2026-11-22"}, std::tuple{2, 13, "2026-11-23"}}) {
    VOCupomFiscal v = coupon(static_cast<std::uint8_t>(printer), number);
    v.Ic_CupomConcluido = true;
    add(v);
    run(fmt::format("UPDATE CupomFiscal SET Dt_Movimento = '{}' WHERE No_CupomFiscal = {}", moved, number));
  }
  asking(coupon(9, 0));
  Recordset open = coupon_.Rs_CuponsNaoConcluidos(day("2026-11-23"), 1);
  EXPECT_EQ(numbers(open, "No_CupomFiscal"), "11 12");
}

class FuelTest : public CouponTest {
 protected:
  void sell(std::uint8_t printer, int number, std::string_view issued, std::string_view time, int km,
            std::int32_t product) {
    VOCupomFiscal v = coupon(printer, number, issued);
    v.Hr_Emissao = time;
    v.Cd_Veiculo = "ABC1D23";
    v.No_Km = km;
    add(v);
    add(line(v, 1, product, 20.5));
  }
  std::int32_t last_km(int number, std::string_view issued) {
    VOCupomFiscal v = coupon(1, number, issued);
    v.Cd_Veiculo = "ABC1D23";
    return asking(v).No_UltimoKm();
  }

  const std::int32_t fuel_ = add_product("GASOLINA", 1, true), oil_ = add_product("OLEO");
};

TEST_F(FuelTest, LastOdometerComparesNumbersAcrossPrintersAndDays) {
  EXPECT_EQ(last_km(900, "2026-11-23"), 0);
  sell(1, 100, "2026-11-20", "10:00:00", 1000, fuel_);
  sell(1, 101, "2026-11-20", "11:00:00", 1100, oil_);
  sell(1, 102, "2026-11-20", "12:00:00", 0, fuel_);
  EXPECT_EQ(last_km(900, "2026-11-23"), 1000);
  sell(2, 901, "2026-11-22", "10:00:00", 1300, fuel_);  // the day before, but another printer counts higher
  EXPECT_EQ(last_km(900, "2026-11-23"), 1000);
  EXPECT_EQ(last_km(902, "2026-11-23"), 1300);
  EXPECT_EQ(last_km(902, "2026-11-21"), 1000);
  run("UPDATE ItemCupomFiscal SET Ic_Excluido = -1 WHERE No_CupomFiscal = 901");
  EXPECT_EQ(last_km(902, "2026-11-23"), 1000);
  coupon_.ObVO->Cd_Veiculo = "O'HARA";
  EXPECT_TRUE(failure_of([&] { coupon_.No_UltimoKm(); }));
}

TEST_F(FuelTest, FuelOfANumberIsSummedOverPrintersAndConsumptionGoesToEveryLine) {
  EXPECT_EQ(asking(coupon(1, 50)).Qt_Combustivel(), 0.0f);
  sell(1, 50, "2026-11-23", "10:00:00", 1, fuel_);
  sell(2, 50, "2026-11-23", "10:00:00", 1, fuel_);
  add(line(coupon(1, 50), 2, oil_, 3));
  EXPECT_EQ(coupon_.Qt_Combustivel(), 41.0f);
  const auto written = statements_of([&] { coupon_.GravarConsumoCombustivel(9.8755f); });
  EXPECT_EQ(written.at(0),
            "UPDATE ItemCupomFiscal|\nSET    Qt_KmPorLitro = 9.876|\nWHERE  Cd_PessoaUsuaria = 1|\nAnd No_Impressora = "
            "1|\nAnd No_CupomFiscal = 50|\nAnd Dt_Emissao = '2026-11-23'");
  EXPECT_EQ(rows("SELECT No_Impressora, No_Item FROM ItemCupomFiscal WHERE Qt_KmPorLitro > 0 ORDER BY No_Item"),
            "1,1\n1,2\n");
}

TEST_F(FuelTest, TellsTheTotalisersOfItsFuellings) {
  run("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, Ds_Bomba, Ds_Bico, De_EnderecoLogicoBico) "
      "Values (1, 4, 'BOMBA 2', 'BICO 4', '04')");
  run("INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Qt_Litros, "
      "No_EncerranteFechamento) Values (1, 71, '04', 20.5, 1020.5)");
  VOItemCupomFiscal sold = line(coupon(1, 10), 1, fuel_, 20.5);
  sold.Cd_Abastecimento = 71;
  add(sold);
  EXPECT_EQ(text_of(asking(coupon(1, 10)).rsAbastecimentos()), "BOMBA 2,BICO 4,4,1000,1020.5\n");
}

TEST_F(FuelTest, LinesAreFoundByLedgerMovementAndByFuelling) {
  for (int item : {1, 2, 3}) {
    VOItemCupomFiscal sold = line(coupon(1, 10), static_cast<std::uint8_t>(item), fuel_, 2, 1.125);
    sold.Cd_LancamentoCardex = 90 + item;
    sold.Cd_Abastecimento = 70 + item;
    add(sold);
  }
  add(coupon(1, 10));
  EXPECT_EQ(text_of(coupon_.ItensPeloKardexRs("91,92")),
            fmt::format("1,{0},10,{1},GASOLINA,2,1.125,2.25\n1,{0},10,{1},GASOLINA,2,1.125,2.25\n",
                        Variant(day("2026-11-23")).as<std::string>(), fuel_));
  EXPECT_TRUE(failure_of([&] { coupon_.ItensPeloKardexRs(""); }));
  EXPECT_TRUE(failure_of([&] { coupon_.ItensPeloKardexSomadosPorProdutoRs("91"); }));  // a column is not grouped
  Recordset summed = coupon_.ObterItensPeloCodigoAbastecimento("71,72,99");
  EXPECT_EQ(summed["SomaDeQt_Unidade"].as<double>(), 4.0);
  EXPECT_EQ(text_of(coupon_.ObterCuponsFiscaisPeloCodigoAbastecimento("71,72")),
            "1,1,10," + Variant(day("2026-11-23")).as<std::string>() + "\n");
  asking(coupon(1, 10)).Excluir();
  EXPECT_TRUE(coupon_.ObterCuponsFiscaisPeloCodigoAbastecimento("71").EOF());
}

class WithoutInvoiceTest : public CouponTest {
 protected:
  struct Asked {
    std::int32_t product = 0;
    std::string_view from{}, to{};
    double least = 0, most = 0, price = 0;
    std::int32_t client = 0, kind = 0, lines = 0;
  };
  std::string found(const Asked& a) {
    auto when = [](std::string_view iso) { return iso.empty() ? Date() : day(iso); };
    Recordset rows = coupon_.CuponsSemEmissaoDeNfRs(1, a.product, when(a.from), when(a.to), Currency(a.least),
                                                    Currency(a.most), Currency(a.price), a.client, a.kind, a.lines);
    return numbers(rows, "No_CupomFiscal");
  }
};

TEST_F(WithoutInvoiceTest, EachConditionCountsWhereItIsGiven) {
  const auto oil = add_product("OLEO"), filter = add_product("FILTRO");
  auto sell = [&](int number, std::string_view issued, std::int32_t product, double units, double price, int client) {
    VOCupomFiscal v = coupon(1, number, issued);
    v.Tp_Venda = 21;
    v.Cd_Cliente = client;
    add(v);
    add(line(v, 1, product, units, price));
    return v;
  };
  sell(10, "2026-11-20", oil, 10, 2.499, 310);
  const VOCupomFiscal paid = sell(11, "2026-11-21", filter, 4, 5, 320);
  sell(12, "2026-11-22", oil, 1, 12.9, 310);
  VOItemCupomFiscal second = line(paid, 2, filter, 1, 1);
  add(second);
  run("UPDATE ItemCupomFiscal SET Ic_Excluido = -1 WHERE No_Item = 2");
  add_receipt(paid, 1, 20);
  sell(13, "2026-11-20", oil, 1, 1, 310);
  run("UPDATE CupomFiscal SET No_NF = 900 WHERE No_CupomFiscal = 13");
  sell(14, "2026-11-20", oil, 1, 1, 310);
  run("UPDATE CupomFiscal SET Tp_Venda = 22 WHERE No_CupomFiscal = 14");

  EXPECT_EQ(found({}), "12 11 10");  // 12.90, 20.00, 24.99
  EXPECT_EQ(found({.product = oil}), "12 10");
  EXPECT_EQ(found({.from = "2026-11-21", .to = "2026-11-22"}), "12 11");
  EXPECT_EQ(found({.from = "2026-11-21"}), "12 11 10");  // one day alone is not asked for
  EXPECT_EQ(found({.least = 4, .most = 10}), "11 10");
  EXPECT_EQ(found({.least = 4}), "12 11 10");
  EXPECT_EQ(found({.price = 2.499}), "10");
  EXPECT_EQ(found({.client = 320}), "11");
  EXPECT_EQ(found({.kind = 5}), "11");
  EXPECT_EQ(found({.lines = 2}), "11");  // the deleted line counts
  EXPECT_EQ(found({.product = oil,
                   .from = "2026-11-20",
                   .to = "2026-11-20",
                   .least = 1,
                   .most = 10,
                   .price = 2.499,
                   .client = 310,
                   .lines = 1}),
            "10");
}

TEST_F(CouponTest, IsMarkedAsBilled) {
  add(coupon(1, 10));
  add(coupon(1, 11));
  asking(coupon(1, 10)).AlterarParaFaturado(640, day("2026-11-30"), 42, day("2026-12-10"), day("2026-11-29"));
  EXPECT_EQ(coupon_.statement(),
            "UPDATE CupomFiscal\rSET    Cd_ContaAReceber = 640,\r       FL_Fechada = 'S',\r       Dt_EfeFechamento = "
            "'2026-11-30',\r       Cd_FuncionarioEfeFechamento = 42,\r       Dt_Vencimento = '2026-12-10',\r       "
            "Dt_Fechamento = '2026-11-29'\rWHERE  Cd_PessoaUsuaria = 1\rAnd No_Impressora = 1\rAnd No_CupomFiscal = "
            "10\rAnd Dt_Emissao = '2026-11-23'");
  EXPECT_EQ(rows("SELECT No_CupomFiscal FROM CupomFiscal WHERE FL_Fechada = 'S'"), "10\n");
}

TEST_F(CouponTest, ServicesForAnInvoiceAreThoseMarkedOfCouponsThatGoOntoOne) {
  add(coupon(1, 10));
  add(coupon(1, 11));
  for (int item : {1, 2, 3}) add(line(coupon(1, 10), static_cast<std::uint8_t>(item), 8, item, 15));
  add(line(coupon(1, 11), 1, 8, 50, 15));
  DALCuponsFiscais day_of_coupons(settings_);
  EXPECT_TRUE(day_of_coupons.rsItensParaEmissaoNFServicosCupons(day("2026-11-23")).EOF());
  run("UPDATE CupomFiscal SET No_TipoEnvioNF = 1 WHERE No_CupomFiscal = 10");
  run("UPDATE ItemCupomFiscal SET Fl_Tipo = 'SERVIcO' WHERE No_Item < 3");
  EXPECT_EQ(text_of(day_of_coupons.rsItensParaEmissaoNFServicosCupons(day("2026-11-23"))), "1,8,3,15,\n");
}

TEST_F(CouponTest, FailuresBearTheNameThatEachOperationTells) {
  connection().Close();
  const std::pair<const char*, std::function<void()>> kNames[] = {
      {"ConsultarRecebimentos", [&] { coupon_.adorsRecebimentos(); }},
      {"ConsultarTotalRecebimentos", [&] { coupon_.ConsultarTotalRecebimentos(); }},
      {"ConsultarItens -> DALCupomFiscal.ConsultarItens", [&] { coupon_.adorsItens(); }},
      {"Rs_ItensTodos", [&] { coupon_.Rs_ItensTodos(); }},
  };
  for (const auto& [name, run_it] : kNames) {
    const auto failure = failure_of(run_it);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->source().ends_with(std::string(" -> DALCupomFiscal.") + name)) << failure->source();
  }
}

}  // namespace
}  // namespace posto
