#include "flows/automatic_posting.h"

#include "flows/lookup.h"
#include "flows/sale.h"
#include "posto/core/mapper.h"
#include "posto/fiscal/DALTipoRecebimento.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "posto/services/clock.h"

namespace posto::flows {
namespace {

class Posting {
 public:
  Posting(Station& station, std::uint8_t printer)
      : station_(station), printer_(printer), fuellings_(station.settings) {}

  AutomaticPosting run() {
    while (take_next() && post()) {
    }
    return std::move(result_);
  }

 private:
  bool take_next() {
    Recordset next = fuellings_.ConsultarProximoAbastecimentosBaixaAutomatica();
    if (next.EOF()) return false;
    fuellings_.ObVO->RestaurarDefault();
    read_record(next, by_name(*fuellings_.ObVO));
    return true;
  }

  // False when the fuelling stays pending.
  bool post() {
    const VOAbastecimento& fuelling = *fuellings_.ObVO;
    if (fuelling.Ic_Afericao) {
      fuellings_.BaixarAbastecimento();
      result_.calibrations.push_back(fuelling.Cd_Abastecimento);
      return true;
    }
    try {
      const VOCupomFiscal coupon = sell(station_, sale_of(fuelling));
      result_.posted.push_back({fuelling.Cd_Abastecimento, coupon.No_CupomFiscal, coupon.Vl_TotalLiquido});
      return true;
    } catch (const Erro& failure) {
      if (failure.number() == erro::kFuellingAlreadyPosted) return settle_posted(failure);
      if (!refuses_sale(failure)) throw;
      result_.refused.push_back({fuelling.Cd_Abastecimento, failure.description()});
      return false;
    }
  }

  Sale sale_of(const VOAbastecimento& fuelling) {
    Sale sale;
    sale.printer = printer_;
    sale.moment = clock_now();
    sale.shift = fuelling.Cd_Caixa;
    sale.vehicle = fuelling.Cd_Veiculo;
    sale.odometer = fuelling.No_Hodometro;
    sale.automatic = true;
    sale.lines.emplace_back().fuelling = fuelling.Cd_Abastecimento;
    sale.payments.emplace_back().kind = kind_of_receipt(fuelling);
    return sale;
  }

  std::int32_t kind_of_receipt(const VOAbastecimento& fuelling) {
    DALTipoRecebimento kinds(station_.settings);
    kinds.ObVO->No_TipoPagamento = fuelling.No_TipoPagamento;
    kinds.ObVO->No_TipoVencimento = fuelling.No_TipoVencimento;
    return stands([&] { kinds.Consultar(); }) ? kinds.ObVO->Cd_TipoRecebimento : kCash;
  }

  // The other computer was first, or a coupon holds the fuelling although it is not marked.
  bool settle_posted(const Erro& failure) {
    if (fuellings_.Consultar().Ic_Baixado) return true;
    fuellings_.BaixarAbastecimento();
    result_.refused.push_back({fuellings_.ObVO->Cd_Abastecimento, failure.description()});
    return true;
  }

  Station& station_;
  std::uint8_t printer_;
  DALAbastecimento fuellings_;
  AutomaticPosting result_;
};

}  // namespace

AutomaticPosting post_automatically(Station& station, const std::string& computer, std::uint8_t printer) {
  station.settings->Nm_Computador = computer;
  return Posting(station, printer).run();
}

}  // namespace posto::flows
