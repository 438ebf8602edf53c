#include "flows/sale_pricing.h"

#include "flows/sale_steps.h"
#include "posto/types/rounding.h"

namespace posto::flows {
namespace {

constexpr int kPriceDecimals = 3;

Currency stored_price(Currency price) { return round_half_away(price, kPriceDecimals); }

// Of sales within the state.
const char* cfop_of(const VOProduto& product) {
  if (product.No_Tipo == kService) return "5933";
  if (product.Fl_VendBomba) return "5656";
  return product.No_TribIcms == "6" ? "5405" : "5102";
}

}  // namespace

LinePricer::LinePricer(Station& station, const VOCupomFiscal& coupon)
    : coupon_(coupon), places_(station), item_(station.settings), fuelling_(station.settings) {}

PricedLine LinePricer::price(const SaleLine& sold) {
  PricedLine line;
  VOItemCupomFiscal& item = line.item;
  item.Cd_PessoaUsuaria = coupon_.Cd_PessoaUsuaria;
  item.No_Impressora = coupon_.No_Impressora;
  item.No_CupomFiscal = coupon_.No_CupomFiscal;
  item.Dt_Emissao = coupon_.Dt_Emissao;
  item.No_Item = ++lines_;
  item.Cd_PonVen = places_.find(sold.place);
  item.Cd_Produto = sold.product;
  item.Qt_Unidade = sold.quantity;
  if (sold.fuelling != 0) take_fuelling(sold, line);
  take_product(sold, line);
  item.Qt_Unidade = stored_quantity(item.Qt_Unidade);
  if (item.Qt_Unidade <= 0) refuse_sale("quantidade não positiva na linha " + std::to_string(item.No_Item));
  return line;
}

void LinePricer::take_fuelling(const SaleLine& sold, PricedLine& line) {
  fuelling_.ObVO->RestaurarDefault();
  fuelling_.ObVO->Cd_PessoaUsuaria = coupon_.Cd_PessoaUsuaria;
  fuelling_.ObVO->Cd_Abastecimento = sold.fuelling;
  const VOAbastecimento& delivered = fuelling_.Consultar();
  if (delivered.Ic_Baixado) throw table_erro(erro::kFuellingAlreadyPosted, "flows", "sale");
  const std::string name = "o abastecimento " + std::to_string(sold.fuelling);
  if (delivered.Ic_Afericao) refuse_sale(name + " é uma aferição");
  VOItemCupomFiscal& item = line.item;
  take_nozzle(delivered.De_EnderecoLogicoBico, item);
  if (sold.product != 0 && sold.product != item.Cd_Produto) refuse_sale(name + " é de outro produto");
  line.delivered = delivered.Dt_Termino;
  item.Cd_Abastecimento = sold.fuelling;
  if (item.Qt_Unidade == 0) item.Qt_Unidade = static_cast<double>(delivered.Qt_Litros);
  item.Vl_UnitTabela = delivered.Vl_Preco;
  item.Vl_UnitVenda =
      stored_price(Currency(delivered.Vl_Preco * (1 - delivered.Tx_DescontoAbastecimento.as_double() / 100)));
  item.Vl_AltAut = item.Vl_UnitVenda - item.Vl_UnitTabela;
}

void LinePricer::take_nozzle(const std::string& address, VOItemCupomFiscal& item) {
  DALBomba& nozzle = *item_.Ob_DALBomba();
  nozzle.ObVO->RestaurarDefault();
  nozzle.ObVO->Cd_PessoaUsuaria = coupon_.Cd_PessoaUsuaria;
  nozzle.ObVO->De_EnderecoLogicoBico = address;
  nozzle.Consultar();
  item.Cd_Produto = nozzle.ObVO->Cd_Produto;
  item.Cd_Bomba = nozzle.ObVO->Cd_Bomba;
  item.Cd_SisTubulacao = nozzle.ObVO->Cd_SisTubulacao;
}

void LinePricer::take_product(const SaleLine& sold, PricedLine& line) {
  VOItemCupomFiscal& item = line.item;
  DALProduto& products = *item_.Ob_DALProduto();
  products.ObVO->RestaurarDefault();
  products.ObVO->Cd_PessoaUsuaria = coupon_.Cd_PessoaUsuaria;
  products.ObVO->Cd_Produto = item.Cd_Produto;
  const VOProduto& product = products.Consultar(false, false);
  line.kind = product.No_Tipo;
  line.iss_rate = product.Tx_Iss;
  item.No_SitTributaria = product.No_SitTributaria;
  item.Cd_Unidade = product.Cd_Unidade;
  item.Tx_Icms = static_cast<float>(product.Tx_Icms);
  item.Tx_BaseCalculo = static_cast<float>(product.Tx_BaseCalculo);
  item.No_TribIcms = product.No_TribIcms;
  item.Cd_CFOP = cfop_of(product);
  if (sold.fuelling == 0) item.Vl_UnitTabela = item.Vl_UnitVenda = product.Vl_Preco;
  if (!sold.price) return;
  item.Vl_UnitVenda = stored_price(*sold.price);
  item.Vl_AltAut = Currency();
  item.Vl_AltDig = item.Vl_UnitVenda - item.Vl_UnitTabela;
}

}  // namespace posto::flows
