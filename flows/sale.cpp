#include "flows/sale.h"

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "flows/sale_pricing.h"
#include "flows/sale_steps.h"
#include "flows/sale_terms.h"
#include "flows/sequence.h"
#include "posto/core/criptografia.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/fiscal/DALECF.h"
#include "posto/fiscal/DALItemCupomFiscal.h"
#include "posto/fiscal/DALRecebimento.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "posto/stock/DALCardex.h"

namespace posto::flows {
namespace {

constexpr std::size_t kMostLines = 255;
constexpr std::uint8_t kPaymentOfSale = 20;
constexpr const char* kDocumentOfSale = "RV";
constexpr const char* kLedgerNumbers = "Cd_LancamentoCardex";

// One sale, inside its transaction.
class Selling {
 public:
  Selling(Station& station, const Sale& sale)
      : station_(station),
        sale_(sale),
        coupon_(station.settings),
        item_(station.settings),
        ledger_(station.settings),
        fuelling_(station.settings),
        printer_(station.settings),
        ledger_numbers_(station.settings, kLedgerNumbers),
        receipt_numbers_(station.settings, "No_Recebimento") {}

  VOCupomFiscal run() {
    if (sale_.lines.empty() || sale_.lines.size() > kMostLines) refuse_sale("um cupom tem de 1 a 255 linhas");
    lock_sales(station_);
    check_day_and_shift();
    read_printer();
    number_ = sale_.number != 0 ? sale_.number : highest_coupon() + 1;
    fill_head();
    coupon_.Incluir();
    write_card_sale(station_, sale_, *coupon_.ObVO);
    for (std::size_t i = 0; i < lines_.size(); ++i) write_line(lines_[i], sale_.lines[i]);
    for (const Payment& payment : payments_) write_receipt(payment);
    ledger_numbers_.store();
    receipt_numbers_.store();
    finish();
    return *coupon_.ObVO;
  }

 private:
  // --- the coupon

  Date business_day() const { return sale_.business_day.empty() ? sale_.moment.day() : sale_.business_day; }

  void check_day_and_shift() {
    if (business_day() <= station_.settings->ObVOEmpresaUsuaria->Dt_CorteMovimento) {
      refuse_sale("o movimento do cupom está fechado");
    }
    require_open_shift(station_, sale_.shift);
  }

  void fill_head() {
    VOCupomFiscal& head = *coupon_.ObVO;
    head.Cd_PessoaUsuaria = station_.tenant();
    head.No_Impressora = sale_.printer;
    head.No_CupomFiscal = head.No_ContadorCupomFiscal = number_;
    head.Dt_Emissao = sale_.moment.day();
    head.Hr_Emissao = format_date(sale_.moment, "hh:Nn:Ss");
    head.Dt_Movimento = business_day();
    head.Cd_Caixa = sale_.shift;
    head.Cd_Cliente = sale_.client;
    head.Cd_Veiculo = sale_.vehicle;
    head.No_Km = sale_.odometer;
    head.Cd_Cfop = "5.929";
    head.Tp_ImpNf = Tp_ImpNfEnumNao;
    head.Ic_BaixaAutomatica = sale_.automatic;
    head.Vl_DescontoCF = sale_.discount;
    LinePricer pricer(station_, head);
    for (const SaleLine& sold : sale_.lines) lines_.push_back(pricer.price(sold));
    add_figures(head);
    payments_ = agreed_payments(station_, sale_, head.Vl_TotalLiquido);
    fill_kind_of_sale(station_, sale_, head);
  }

  void add_figures(VOCupomFiscal& head) {
    Currency printed, cancelled;
    std::vector<PricedLine> live;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const Currency amount = amount_of(lines_[i].item);
      printed += amount;
      if (sale_.lines[i].cancelled) {
        cancelled += amount;
      } else {
        live.push_back(lines_[i]);
      }
    }
    if (live.empty()) refuse_sale("todas as linhas estão canceladas");
    total_up(head, live);
    if (head.Vl_TotalLiquido < Currency()) refuse_sale("desconto maior que o total: " + in_reais(sale_.discount));
    head.No_TipoEnvioNF = head.Vl_TotSer > Currency() ? 1 : 0;
    head.Vl_GTotal = grand_total_before() + printed;
    head.Vl_Cancelamentos = cancelled_before(head.Dt_Movimento) + cancelled;
    head.Qt_ContReducoes = reductions_before() + 1;
  }

  void read_printer() {
    printer_.ObVO->Cd_PessoaUsuaria = station_.tenant();
    printer_.ObVO->No_Impressora = sale_.printer;
    if (!stands([&] { printer_.Consultar(); })) refuse_sale("não há a impressora " + std::to_string(sale_.printer));
  }

  std::int32_t highest_coupon() {
    Recordset highest = station_.connection().Execute(sql(R"(
        SELECT Max(No_CupomFiscal) As MaxDeNo_CupomFiscal
        FROM   CupomFiscal
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {})",
                                                          station_.tenant(), sale_.printer));
    return highest["MaxDeNo_CupomFiscal"].value_or(std::int32_t{0});
  }

  Currency grand_total_before() {
    const Currency total = printer_.ObterGTotalDeCupons();
    const std::string& registered = printer_.ObVO->Ds_GTotalCriptografado;
    return total != Currency() || registered.empty() ? total : Currency::parse(Criptografia::Desencriptar(registered));
  }

  Currency cancelled_before(Date business_day) {
    Recordset highest = station_.connection().Execute(sql(R"(
        SELECT Max(Vl_Cancelamentos) As MaxDeVl_Cancelamentos
        FROM   CupomFiscal
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {} And
               Dt_Movimento = {})",
                                                          station_.tenant(), sale_.printer,
                                                          DateSemHoraToSql(business_day, *station_.settings)));
    return highest["MaxDeVl_Cancelamentos"].value_or(Currency());
  }

  std::int32_t reductions_before() {
    DALReducaoZ reduction(station_.settings);
    const bool any = stands([&] { reduction.ConsultarUltima(station_.tenant(), sale_.printer); });
    return any ? reduction.ObVO->Qt_ContReducoes : 0;
  }

  // --- what is written

  void write_line(PricedLine& line, const SaleLine& sold) {
    VOItemCupomFiscal& item = line.item;
    if (sold.cancelled) item.Cd_Abastecimento = 0;
    if (!sold.cancelled && line.kind != kService) item.Cd_LancamentoCardex = movement_of(line);
    *item_.ObVO = item;
    item_.Incluir();
    if (line.kind == kService) mark_service(item);
    if (sold.cancelled) {
      item_.Excluir();
    } else if (item.Cd_Abastecimento != 0) {
      fuelling_.ObVO->Cd_Abastecimento = item.Cd_Abastecimento;
      fuelling_.BaixarAbastecimento();
      fuelling_.ConferirBaixa();
    }
  }

  // The code of the line's ledger movement, which is made unless it came in with the fuelling.
  std::int32_t movement_of(const PricedLine& line) {
    const bool of_fuelling = line.item.Cd_Abastecimento != 0;
    if (of_fuelling) {
      if (const std::int32_t taken_in = movement_with(line)) return taken_in;
    }
    VOCardex& v = *ledger_.ObVO;
    v.RestaurarDefault();
    v.Cd_PessoaUsuaria = station_.tenant();
    v.Dt_Emissao = line.item.Dt_Emissao;
    v.Nm_Doc = "CF " + std::to_string(number_);
    v.No_Tipo = SaidaVendas;
    v.Qt_Unidade = line.item.Qt_Unidade;
    v.Vl_Unitario = line.item.Vl_UnitVenda.as_double();
    v.Tx_Icms = Currency(static_cast<double>(line.item.Tx_Icms));
    v.Cd_SisTubulacao = line.item.Cd_SisTubulacao;
    v.Cd_Produto = line.item.Cd_Produto;
    ledger_.AtualizarEstoqueProduto(v, Tp_EdicaoInclusao, !of_fuelling);
    v.Cd_LancamentoCardex = ledger_numbers_.next();
    ledger_.Incluir();
    return v.Cd_LancamentoCardex;
  }

  // The movement that was taken in with the line's fuelling; 0 where none was.
  std::int32_t movement_with(const PricedLine& line) {
    Recordset movement = station_.connection().Execute(sql(R"(
        SELECT Cd_LancamentoCardex
        FROM   Cardex
        WHERE  Cd_PessoaUsuaria = {} And
               Cd_Produto = {} And
               Dt_Emissao = {} And
               Nm_Doc = '{}')",
                                                           station_.tenant(), line.item.Cd_Produto,
                                                           DateSemHoraToSql(line.delivered, *station_.settings),
                                                           document_of_fuelling(line.item.Cd_Abastecimento)));
    return movement.EOF() ? 0 : movement["Cd_LancamentoCardex"].as<std::int32_t>();
  }

  void mark_service(const VOItemCupomFiscal& item) {
    station_.connection().Execute(sql(R"(
        UPDATE ItemCupomFiscal
        SET    Fl_Tipo = 'SERVIcO'
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {} And
               No_CupomFiscal = {} And
               Dt_Emissao = {} And
               No_Item = {})",
                                      item.Cd_PessoaUsuaria, item.No_Impressora, item.No_CupomFiscal,
                                      DateSemHoraToSql(item.Dt_Emissao, *station_.settings), item.No_Item));
  }

  void write_receipt(const Payment& payment) {
    DALRecebimento receipt(station_.settings);
    VORecebimento& v = *receipt.ObVO;
    v.Cd_PessoaUsuaria = station_.tenant();
    v.No_Recebimento = receipt_numbers_.next();
    v.Tp_DocDebito = kPaymentOfSale;
    v.Cd_TipoRecebimento = payment.kind;
    v.Dt_Recebimento = v.Dt_Lancamento = sale_.moment.day();
    v.Vl_Recebimento = *payment.value;
    v.Cd_Caixa = sale_.shift;
    v.No_Impressora = sale_.printer;
    v.No_CupomFiscal = number_;
    v.Dt_Emissao = sale_.moment.day();
    receipt.Incluir();
    receipt.IncluirRecebimentoCupom();
  }

  void finish() {
    VOCupomFiscal& head = *coupon_.ObVO;
    head.Ic_CupomConcluido = true;
    coupon_.Alterar();
    printer_.AtualizarValorGT(head.Vl_GTotal);
    printer_.IncluirLogDocumentoEmitidoECF(head.Dt_Emissao, number_, 0, 0, 0, kDocumentOfSale, sale_.moment,
                                           sale_.moment, false, false, head.Vl_TotalLiquido);
  }

  Station& station_;
  const Sale& sale_;
  std::int32_t number_ = 0;  // of the coupon
  std::vector<Payment> payments_;
  DALCupomFiscal coupon_;
  DALItemCupomFiscal item_;
  DALCardex ledger_;
  DALAbastecimento fuelling_;
  DALECF printer_;
  Sequence ledger_numbers_, receipt_numbers_;
  std::vector<PricedLine> lines_;
};

}  // namespace

std::string document_of_fuelling(std::int32_t fuelling) { return "AB " + std::to_string(fuelling); }

void refuse_sale(const std::string& reason) { throw Erro(erro::kRuleViolation, "flows.sale", reason); }

bool refuses_sale(const Erro& raised) {
  const std::int32_t number = raised.number();
  return number == erro::kRuleViolation || number == erro::kRecordNotFound || number == erro::kInsufficientStock ||
         number == erro::kFuellingAlreadyPosted || number == erro::kSaleNotReleasedToClient;
}

void lock_sales(Station& station) { Sequence(station.settings, kLedgerNumbers).hold(); }

VOCupomFiscal sell(Station& station, const Sale& sale) {
  VOCupomFiscal sold;
  in_transaction(station, [&] { sold = Selling(station, sale).run(); });
  return sold;
}

void sell_and_cancel(Station& station, const Sale& sale) {
  in_transaction(station, [&] {
    const VOCupomFiscal sold = Selling(station, sale).run();
    take_coupon_back(station, {sold.No_Impressora, sold.No_CupomFiscal, sold.Dt_Emissao});
  });
}

}  // namespace posto::flows
