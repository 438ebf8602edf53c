// Takes lines and coupons back.
#include <algorithm>

#include "flows/conflict.h"
#include "flows/sale.h"
#include "flows/sale_steps.h"
#include "flows/sale_terms.h"
#include "flows/sale_totals.h"
#include "posto/core/error_vocabulary.h"
#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/fiscal/DALECF.h"
#include "posto/fiscal/DALItemCupomFiscal.h"
#include "posto/fiscal/DALRecebimento.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "posto/services/clock.h"
#include "posto/stock/DALCardex.h"

namespace posto::flows {
namespace {

constexpr const char* kDocumentOfCancelling = "CA";

// One cancelling, inside its transaction.
class Cancelling {
 public:
  Cancelling(Station& station, const CouponKey& key) : station_(station), coupon_(station.settings) {
    lock_sales(station_);
    VOCupomFiscal& head = *coupon_.ObVO;
    head.Cd_PessoaUsuaria = station_.tenant();
    head.No_Impressora = key.printer;
    head.No_CupomFiscal = key.number;
    head.Dt_Emissao = key.issued;
    coupon_.Consultar();
    if (head.FL_Fechada == "S") refuse_sale("o cupom já foi faturado");
    if (head.No_NF != 0) refuse_sale("há a nota fiscal " + std::to_string(head.No_NF) + " do cupom");
    if (head.Dt_Movimento <= station_.settings->ObVOEmpresaUsuaria->Dt_CorteMovimento) {
      refuse_sale("o movimento do cupom está fechado");
    }
    refuse_checked_shift(station_, head.Cd_Caixa);
    read_lines();
  }

  void line(std::uint8_t number) {
    const auto found =
        std::find_if(lines_.begin(), lines_.end(), [&](const PricedLine& line) { return line.item.No_Item == number; });
    if (found == lines_.end()) throw table_erro(erro::kRecordNotFound, "flows", "sale", "(ItemCupomFiscal)");
    if (lines_.size() == 1) refuse_sale("é a única linha do cupom: cancele o cupom");
    const Currency amount = amount_of(found->item);
    take_out(found->item);
    lines_.erase(found);
    total_up(*coupon_.ObVO, lines_);
    if (coupon_.ObVO->Vl_TotalLiquido < Currency()) refuse_sale("o desconto do cupom é maior que o que resta dele");
    coupon_.Alterar();
    revalue_card_sale(station_, *coupon_.ObVO);
    shrink_receipts(coupon_.ConsultarTotalRecebimentos() - coupon_.ObVO->Vl_TotalLiquido);
    record(amount);
  }

  void whole() {
    for (const PricedLine& line : lines_) take_out(line.item);
    coupon_.ExcluirRecebimentos();
    clear_totals(*coupon_.ObVO);
    coupon_.ObVO->Vl_DescontoCF = coupon_.ObVO->Vl_DesAcr = Currency();
    coupon_.Alterar();
    revalue_card_sale(station_, *coupon_.ObVO);
    record(coupon_.ObVO->Vl_Total);
    coupon_.Excluir();
  }

 private:
  void read_lines() {
    for (Recordset& rows = coupon_.adorsItens(); !rows.EOF(); rows.MoveNext()) {
      PricedLine& line = lines_.emplace_back();
      read_record(rows, by_name(line.item));
      line.kind = rows["No_Tipo"].value_or(std::uint8_t{0});
      line.iss_rate = coupon_.ObVO->Tx_Iss;
    }
  }

  void take_out(const VOItemCupomFiscal& item) {
    DALItemCupomFiscal line(station_.settings);
    *line.ObVO = item;
    line.Excluir();
    if (item.Cd_LancamentoCardex != 0) put_back(item);
    if (item.Cd_Abastecimento != 0) make_pending(item.Cd_Abastecimento);
  }

  void put_back(const VOItemCupomFiscal& item) {
    DALCardex movement(station_.settings);
    movement.ObVO->Cd_PessoaUsuaria = station_.tenant();
    movement.ObVO->Cd_LancamentoCardex = item.Cd_LancamentoCardex;
    const bool came_with_fuelling =
        item.Cd_Abastecimento != 0 && movement.Consultar().Nm_Doc == document_of_fuelling(item.Cd_Abastecimento);
    if (!came_with_fuelling) movement.Excluir();
  }

  void make_pending(std::int32_t code) {
    DALAbastecimento fuelling(station_.settings);
    fuelling.ObVO->Cd_PessoaUsuaria = station_.tenant();
    fuelling.ObVO->Cd_Abastecimento = code;
    fuelling.Consultar().Ic_Baixado = false;
    fuelling.Alterar();
  }

  void shrink_receipts(Currency excess) {
    std::vector<std::int32_t> numbers;
    for (Recordset rows = coupon_.adorsRecebimentos(); !rows.EOF(); rows.MoveNext()) {
      numbers.push_back(rows["No_Recebimento"].as<std::int32_t>());
    }
    std::sort(numbers.rbegin(), numbers.rend());
    for (std::int32_t number : numbers) {
      if (excess <= Currency()) return;
      excess -= shrink_receipt(number, excess);
    }
  }

  // Takes up to `excess` off a receipt, which goes when nothing is left; gives what it took off.
  Currency shrink_receipt(std::int32_t number, Currency excess) {
    DALRecebimento receipt(station_.settings);
    VORecebimento& v = *receipt.ObVO;
    v.Cd_PessoaUsuaria = station_.tenant();
    v.No_Recebimento = number;
    receipt.Consultar();
    const Currency off = std::min(excess, v.Vl_Recebimento);
    v.Vl_Recebimento -= off;
    if (v.Vl_Recebimento > Currency()) {
      receipt.Alterar();
      return off;
    }
    DALRecebimentoCupom link(station_.settings);
    link.ObVO->Cd_PessoaUsuaria = station_.tenant();
    link.ObVO->No_Impressora = coupon_.ObVO->No_Impressora;
    link.ObVO->No_CupomFiscal = coupon_.ObVO->No_CupomFiscal;
    link.ObVO->Dt_Emissao = coupon_.ObVO->Dt_Emissao;
    link.ObVO->No_Recebimento = number;
    link.Excluir();
    receipt.Excluir();
    return off;
  }

  // Adds to the printer's running figure of cancellations, and to its log.
  void record(Currency amount) {
    const VOCupomFiscal& head = *coupon_.ObVO;
    station_.connection().Execute(sql(R"(
        UPDATE CupomFiscal
        SET    Vl_Cancelamentos = Vl_Cancelamentos + {}
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {} And
               Dt_Movimento = {} And
               No_CupomFiscal >= {})",
                                      MoneyToSql(amount, 2), head.Cd_PessoaUsuaria, head.No_Impressora,
                                      DateSemHoraToSql(head.Dt_Movimento, *station_.settings), head.No_CupomFiscal));
    DALECF printer(station_.settings);
    printer.ObVO->Cd_PessoaUsuaria = head.Cd_PessoaUsuaria;
    printer.ObVO->No_Impressora = head.No_Impressora;
    const Date now = clock_now();
    printer.IncluirLogDocumentoEmitidoECF(head.Dt_Emissao, head.No_CupomFiscal, 0, 0, 0, kDocumentOfCancelling, now,
                                          now, false, false, amount);
  }

  Station& station_;
  DALCupomFiscal coupon_;
  std::vector<PricedLine> lines_;
};

}  // namespace

void cancel_line(Station& station, const CouponKey& coupon, std::uint8_t item) {
  in_transaction(station, [&] { Cancelling(station, coupon).line(item); });
}

void take_coupon_back(Station& station, const CouponKey& coupon) { Cancelling(station, coupon).whole(); }

void cancel_coupon(Station& station, const CouponKey& coupon) {
  in_transaction(station, [&] { take_coupon_back(station, coupon); });
}

}  // namespace posto::flows
