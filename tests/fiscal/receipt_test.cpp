#include "posto/fiscal/DALRecebimento.h"
#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

constexpr std::string_view kIntoRecebimento =
    "INSERT INTO Recebimento (Cd_PessoaUsuaria,No_Recebimento,Tp_DocDebito,No_DocDebito,Cd_TipoRecebimento,Cd_Cmc7Rec,"
    "Cd_BancoRec,Cd_AgenciaRec,Cd_ContaRec,Nm_IdDocumentoRec,Tp_Operacao,Cd_Tipo0,Cd_Tipo1,Cd_CgcCpf0,Cd_CgcCpf1,"
    "Dt_Recebimento,Vl_Recebimento,Qt_DiasAtraso,Vl_Amortizacao,Vl_JurosRec,Tx_MoraRec,Dt_Lancamento,Cd_Caixa,"
    "No_Sangria,Ic_Suprimento) Values (";

// A cheque that pays coupon 1530 of printer 2.
VORecebimento cheque(std::int32_t number = 7720) {
  VORecebimento v;
  v.Cd_PessoaUsuaria = 1;
  v.No_Recebimento = number;
  v.Tp_DocDebito = 20;
  v.Cd_TipoRecebimento = 2;
  v.Cd_Cmc7Rec = "237024500180000115505603";
  v.Cd_BancoRec = 237;
  v.Cd_AgenciaRec = 245;
  v.Cd_ContaRec = "0018000-0";
  v.Nm_IdDocumentoRec = "000115";
  v.Tp_Operacao = Tp_OperacaoChequeEmitente;
  v.Cd_Tipo0 = 1;
  v.Cd_CgcCpf0 = "12345678909";
  v.Dt_Recebimento = day("2026-12-23");
  v.Vl_Recebimento = Currency(110.25);
  v.Vl_Amortizacao = Currency(110);
  v.Vl_JurosRec = Currency(0.25);
  v.Tx_MoraRec = Currency(2.3333);
  v.Dt_Lancamento = Date::parse_iso("2026-11-23 10:15:42").value();
  v.Cd_Caixa = 87;
  v.No_Impressora = 2;
  v.No_CupomFiscal = 1530;
  v.Dt_Emissao = day("2026-11-23");
  return v;
}

VORecebimento float_of(std::int32_t number) {
  VORecebimento v = cheque(number);
  v.Nm_IdDocumentoRec = "SUPRIMENTO";
  v.Ic_Suprimento = true;
  return v;
}

class Receipt : public FiscalTest {
 protected:
  void add_receipt_of(const VORecebimento& v) {
    *receipts_.ObVO = v;
    receipts_.Incluir();
  }
  VORecebimento& read(std::int32_t number) {
    receipts_.ObVO->RestaurarDefault();
    receipts_.ObVO->Cd_PessoaUsuaria = 1;
    receipts_.ObVO->No_Recebimento = number;
    return receipts_.Consultar();
  }
  DALRecebimento receipts_{settings_};
};

TEST_F(Receipt, InsertWritesEachColumnInItsForm) {
  *receipts_.ObVO = cheque();
  EXPECT_EQ(receipts_.instrucaoInsert(),
            std::string(kIntoRecebimento) +
                "1,7720,20,Null,2,'237024500180000115505603',237,245,'0018000-0','000115',1,1,Null,'12345678909',Null,"
                "'2026-12-23',110.25,0,110.00,0.25,2.3333,'2026-11-23',87,0,0)");
  *receipts_.ObVO = {};
  receipts_.ObVO->No_Recebimento = 1;
  receipts_.ObVO->Ic_Suprimento = true;
  EXPECT_EQ(receipts_.instrucaoInsert(), std::string(kIntoRecebimento) +
                                             "Null,1,0,Null,Null,Null,Null,Null,Null,'',0,Null,Null,Null,Null,"
                                             "'1899-12-30',0.00,0,0.00,0.00,0.0000,'1899-12-30',Null,0,-1)");
}

TEST_F(Receipt, ReadingBringsTheCouponUnlessItIsAFloat) {
  add_receipt_of(cheque());
  EXPECT_TRUE(receipts_.IncluirRecebimentoCupom());
  EXPECT_EQ(read(7720).Vl_Recebimento, Currency(110.25));
  EXPECT_EQ(receipts_.ObVO->No_Impressora, 2);
  EXPECT_EQ(receipts_.ObVO->No_CupomFiscal, 1530);
  EXPECT_EQ(receipts_.ObVO->Dt_Emissao, day("2026-11-23"));

  // What pays no coupon leaves none from the receipt that was read before.
  VORecebimento instalment = cheque(7721);
  instalment.Tp_DocDebito = 10;
  instalment.No_CupomFiscal = 0;
  add_receipt_of(instalment);
  EXPECT_TRUE(receipts_.IncluirRecebimentoCupom());
  receipts_.ObVO->No_CupomFiscal = 1530;
  receipts_.Consultar();
  EXPECT_EQ(receipts_.ObVO->No_CupomFiscal, 0);

  add_receipt_of(float_of(7722));
  EXPECT_TRUE(receipts_.IncluirRecebimentoCupom());
  EXPECT_EQ(statements_of([&] { read(7722); }).size(), 1U);
  EXPECT_EQ(rows("SELECT No_Recebimento FROM RecebimentoCupom"), "7720\n");

  expect_failure(erro::kRecordNotFound, " -> DALRecebimento.Consultar,  -> DALRecebimento.Consultar",
                 [&] { read(9999); });
}

TEST_F(Receipt, StaysWhenItCannotBeTied) {
  add_receipt_of(cheque());
  receipts_.IncluirRecebimentoCupom();
  const auto failure = failure_of([&] { receipts_.IncluirRecebimentoCupom(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kIntegrity);
  EXPECT_TRUE(failure->source().ends_with(" -> DALRecebimentoCupom.Incluir -> DALRecebimento.IncluirRecebimentoCupom"));
  EXPECT_EQ(read(7720).No_CupomFiscal, 1530);
}

TEST_F(Receipt, IsChangedAndDeletedByItsNumber) {
  add_receipt_of(cheque(1));
  add_receipt_of(cheque(2));
  read(1).No_Sangria = 5;
  receipts_.Alterar();
  EXPECT_EQ(rows("SELECT No_Recebimento, No_Sangria FROM Recebimento ORDER BY No_Recebimento"), "1,5\n2,0\n");
  receipts_.Excluir();
  EXPECT_EQ(rows("SELECT No_Recebimento FROM Recebimento"), "2\n");
}

TEST_F(Receipt, AChequeIsKnownByAllThatItBears) {
  add_receipt_of(cheque(1));
  VORecebimento plain = cheque(2);
  plain.Nm_IdDocumentoRec = "77";
  plain.Cd_BancoRec = plain.Cd_AgenciaRec = 0;
  plain.Cd_ContaRec.clear();
  add_receipt_of(plain);
  plain.No_Recebimento = 3;
  plain.Nm_IdDocumentoRec = "78";
  add_receipt_of(plain);
  run("UPDATE Recebimento SET Cd_ContaRec = '' WHERE No_Recebimento = 3");
  struct Case {
    const char* name;
    void (*change)(VORecebimento&);
    Tp_EdicaoEnum edit;
    bool known;
  };
  const Case kCases[] = {
      {"the same", [](VORecebimento&) {}, Tp_EdicaoInclusao, true},
      {"another company's", [](VORecebimento& v) { v.Cd_PessoaUsuaria = 2; }, Tp_EdicaoInclusao, true},
      {"itself, on a change", [](VORecebimento&) {}, Tp_EdicaoAlteracao, false},
      {"another's, on a change", [](VORecebimento& v) { v.No_Recebimento = 9; }, Tp_EdicaoAlteracao, true},
      {"a change without a number", [](VORecebimento& v) { v.No_Recebimento = 0; }, Tp_EdicaoAlteracao, true},
      {"another kind", [](VORecebimento& v) { v.Cd_TipoRecebimento = 3; }, Tp_EdicaoInclusao, false},
      {"another document", [](VORecebimento& v) { v.Nm_IdDocumentoRec = "000116"; }, Tp_EdicaoInclusao, false},
      {"another bank", [](VORecebimento& v) { v.Cd_BancoRec = 1; }, Tp_EdicaoInclusao, false},
      {"no bank", [](VORecebimento& v) { v.Cd_BancoRec = 0; }, Tp_EdicaoInclusao, false},
      {"another branch", [](VORecebimento& v) { v.Cd_AgenciaRec = 1; }, Tp_EdicaoInclusao, false},
      {"no branch", [](VORecebimento& v) { v.Cd_AgenciaRec = 0; }, Tp_EdicaoInclusao, false},
      {"no account", [](VORecebimento& v) { v.Cd_ContaRec.clear(); }, Tp_EdicaoInclusao, false},
  };
  for (const Case& c : kCases) {
    *receipts_.ObVO = cheque(1);
    c.change(*receipts_.ObVO);
    EXPECT_EQ(receipts_.ExisteLancamentoDocumento(c.edit), c.known) << c.name;
  }
  for (const char* document : {"77", "78"}) {
    *receipts_.ObVO = plain;
    receipts_.ObVO->Nm_IdDocumentoRec = document;
    EXPECT_TRUE(receipts_.ExisteLancamentoDocumento(Tp_EdicaoInclusao)) << document;
  }
}

TEST_F(Receipt, WhatLiesInTheDrawer) {
  for (std::int32_t number : {3, 1, 2, 4, 5, 6}) {
    VORecebimento v = cheque(number);
    if (number == 2) v.No_Sangria = 8;
    if (number == 4) v.Cd_Caixa = 88;
    if (number == 5) v.Cd_TipoRecebimento = 5;
    if (number == 6) v.Cd_PessoaUsuaria = 2;
    add_receipt_of(v);
  }
  VOCaixa shift;
  shift.Cd_Caixa = 87;
  VOTipoRecebimento kind;
  kind.Cd_TipoRecebimento = 2;
  DALRecebimentos all(settings_);
  Recordset drawer = all.ConsultarRecebimentosNaoSangradosDoCaixa(shift, kind, 9);
  EXPECT_EQ(drawer["No_Recebimento"].as<std::int32_t>(), 1);
  drawer.MoveNext();
  EXPECT_EQ(drawer["No_Recebimento"].as<std::int32_t>(), 3);
  drawer.MoveNext();
  EXPECT_TRUE(drawer.EOF());
}

TEST_F(Receipt, KindsAreFoundByCodeOrByHowTheyPay) {
  for (const char* kind : {"5, 'DINHEIRO', 1, 0, 1", "2, 'CHEQUE', 2, 1, 1", "3, 'CARTAO', 2, 1, 0"}) {
    run(
        fmt::format("INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento, No_TipoPagamento, "
                    "No_TipoVencimento, Fl_DisNaVenda) Values ({})",
                    kind));
  }
  DALTipoRecebimento kinds(settings_);
  kinds.ObVO->Cd_TipoRecebimento = 3;
  EXPECT_EQ(kinds.Consultar().Nm_TipoRecebimento, "CARTAO");
  *kinds.ObVO = {};
  kinds.ObVO->No_TipoPagamento = 2;
  kinds.ObVO->No_TipoVencimento = 1;
  EXPECT_EQ(kinds.Consultar().Nm_TipoRecebimento, "CHEQUE");
  *kinds.ObVO = {};
  kinds.ObVO->No_TipoPagamento = 9;
  const std::string path = " -> DALTipoRecebimento.Consultar,  -> DALTipoRecebimento.Consultar";
  expect_failure(erro::kRecordNotFound, path, [&] { kinds.Consultar(); });
  EXPECT_EQ(kinds.ObVO->No_TipoPagamento, 9);
  expect_failure(erro::kRecordNotFound, path, [&] { kinds.Consultar(true); });
  EXPECT_EQ(kinds.ObVO->No_TipoPagamento, 0);

  MemoryList list;
  kinds.CarregarComboBox(list, "WHERE Fl_DisNaVenda = 1");
  EXPECT_EQ(list.items(), (std::vector<MemoryList::Item>{{"SELECIONE ->", 0}, {"CHEQUE", 2}, {"DINHEIRO", 5}}));
}

TEST_F(Receipt, InquiriesAreFoundByMagneticLineOrByAccount) {
  DALConsultaCheque inquiries(settings_);
  VOConsultaCheque& v = *inquiries.ObVO;
  const auto fill = [&](std::string_view document, std::string_view line) {
    v = {};
    v.Cd_Banco = 237;
    v.Cd_Agencia = 245;
    v.Cd_Conta = "0018000-0";
    v.Nm_IdDocumento = document;
    v.Cd_Cmc7 = line;
  };
  for (const char* document : {"000115", "000116"}) {
    fill(document, std::string("L") + document);
    v.Ds_Resposta = document;
    inquiries.Incluir();
  }
  v = {};
  v.Cd_Cmc7 = "L000115";
  EXPECT_TRUE(inquiries.Existe());
  EXPECT_EQ(v.Ds_Resposta, "");
  EXPECT_EQ(inquiries.Consultar().Ds_Resposta, "000115");
  // The line alone decides where there is one.
  fill("000116", "L000115");
  EXPECT_EQ(inquiries.Consultar().Nm_IdDocumento, "000115");
  EXPECT_TRUE(inquiries.statement().ends_with("\r-- ConsultaCheque_03\r")) << inquiries.statement();
  fill("000116", "");
  EXPECT_EQ(inquiries.Consultar().Ds_Resposta, "000116");

  fill("000117", "");
  EXPECT_FALSE(inquiries.Existe());
  EXPECT_TRUE(inquiries.statement().ends_with("\r-- ConsultaCheque_01\r"));
  EXPECT_EQ(v.Cd_Banco, 237);
  EXPECT_FALSE(inquiries.Existe(true));
  EXPECT_EQ(v.Cd_Banco, 0);
  expect_failure(erro::kMissingKey, " -> DALConsultaCheque.Existe,  -> DALConsultaCheque.Existe",
                 [&] { inquiries.Existe(); });

  v.Cd_Cmc7 = "L000115";
  inquiries.Excluir();
  EXPECT_EQ(rows("SELECT Nm_IdDocumento FROM ConsultaCheque"), "000116\n");
}

}  // namespace
}  // namespace posto
