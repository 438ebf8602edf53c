#include "flows/purchase.h"

#include <cmath>
#include <map>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "flows/purchase_note.h"
#include "flows/sequence.h"
#include "posto/core/enumerations.h"
#include "posto/fiscal/DALNotaEntrada.h"
#include "posto/fiscal/catalogue.h"
#include "posto/forecourt/catalogue.h"
#include "posto/stock/DALCardex.h"
#include "posto/types/number_pattern.h"

namespace posto::flows {
namespace {

constexpr std::uint8_t kMovesStock = 10;  // Cd_Operacao
constexpr double kLeastLitres = 0.0005;   // half of what a pump tells
constexpr std::string_view kMoneyPattern = "###,###,##0.00";
constexpr std::string_view kLitresPattern = "###,###,##0.000";

// Why a note is not stored. It leaves the transaction, which rolls back.
struct Refused {
  std::string reason;
};

enum class Taken { stored, repeated };

// Stores one note.
class Purchase {
 public:
  Purchase(Station& station, const PurchaseNote& note)
      : station_(station),
        note_(note),
        amounts_(amounts_of(note)),
        record_(station.settings),
        ledger_(station.settings),
        numbers_(station.settings, "Cd_LancamentoCardex") {}

  // Raises Refused.
  Taken take() {
    require_total();
    Taken taken{};
    in_transaction(station_, [&] {
      numbers_.forget();
      taken = already_there() ? Taken::repeated : Taken::stored;
      if (taken == Taken::repeated) return;
      store_header();
      for (std::size_t i = 0; i < note_.lines.size(); ++i) store_line(i);
      store_deliveries();
      numbers_.store();
      conclude();
    });
    return taken;
  }

 private:
  // The sum of a figure over the lines.
  Currency sum(Currency LineAmounts::*figure) const {
    Currency all;
    for (const LineAmounts& a : amounts_) all += a.*figure;
    return all;
  }

  void require_total() const {
    const Currency lines = sum(&LineAmounts::cost);
    const Currency total = note_.header.total;
    if (lines == total) return;
    throw Refused{"o total da nota é " + format_number(total, kMoneyPattern) + " e as linhas somam " +
                  format_number(lines, kMoneyPattern) + ": diferença de " +
                  format_number(lines - total, kMoneyPattern)};
  }

  void set_key() {
    VONotaEntrada& vo = *record_.ObVO;
    vo.RestaurarDefault();
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Cd_TipoNF = note_.header.kind;
    vo.No_Nota = note_.header.number;
    vo.Cd_Fornecedor = note_.header.supplier;
  }

  bool already_there() {
    set_key();
    if (!stands([&] { record_.Consultar(); })) return false;
    const VONotaEntrada& vo = *record_.ObVO;
    const PurchaseHeader& h = note_.header;
    if (vo.Vl_TotalNota != h.total || vo.Dt_Emissao != h.issued || vo.Dt_Entrega != h.delivered) {
      throw Refused{"já registrada com outros valores, entrada " + std::to_string(vo.No_Entrada)};
    }
    return true;
  }

  void store_header() {
    set_key();
    VONotaEntrada& vo = *record_.ObVO;
    vo.Cd_Operacao = kMovesStock;
    vo.Dt_Emissao = note_.header.issued;
    vo.Dt_Entrega = note_.header.delivered;
    vo.Vl_TotalProdutos = sum(&LineAmounts::products);
    vo.Vl_TotalDesconto = note_.header.discount;
    for (const PurchaseLine& line : note_.lines) {
      vo.Vl_TotalDesconto += line.discount;
      vo.Vl_IcmsST += line.substituted_icms;
    }
    vo.Vl_TotalFrete = note_.header.freight;
    vo.Vl_OutrasDespesas = note_.header.expenses;
    for (const LineAmounts& a : amounts_) {
      if (a.icms_credit != Currency()) vo.Vl_BasCalIcms += a.icms_base;
    }
    vo.Vl_TotalIcms = sum(&LineAmounts::icms_credit);
    vo.Vl_TotalIpi = sum(&LineAmounts::ipi);
    vo.Vl_TotalNota = note_.header.total;
    record_.Incluir();
    record_.Consultar();  // for the number that the database gave
  }

  void store_line(std::size_t index) {
    const PurchaseLine& line = note_.lines[index];
    const LineAmounts& a = amounts_[index];
    const double unit_cost = a.cost / line.quantity;
    DALItemNotaEntrada item(station_.settings);
    VOItemNotaEntrada& vo = *item.ObVO;
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.No_Entrada = record_.ObVO->No_Entrada;
    vo.No_Item = static_cast<std::int32_t>(index) + 1;
    vo.Cd_ProdutoItem = line.product;
    vo.Cd_CfopItem = vo.Cd_Cfop = line.cfop;
    vo.Cd_LancamentoCardex = store_movement(line, unit_cost);
    vo.No_SitTributaria = line.situation;
    vo.Qt_UnidadeItem = line.quantity;
    vo.Vl_UnitNota = line.unit;
    vo.Vl_UnitFinal = Currency(unit_cost);
    vo.Vl_TotalItem = a.products - line.discount;
    vo.Vl_DescontoItem = line.discount;
    if (a.products != Currency()) vo.Tx_DescontoItem = line.discount.as_double() / a.products.as_double() * 100;
    vo.Vl_RateioDescontoGeral = a.discount;
    vo.Vl_Frete = a.freight;
    vo.Vl_Despesas = a.expenses;
    vo.Tx_Icms = line.icms_rate.as_double();
    vo.Vl_CredIcms = a.icms_credit;
    vo.Tx_IPI = line.ipi_rate.as_double();
    vo.Vl_IpiItem = a.ipi;
    vo.Vl_IcmsSTItem = line.substituted_icms;
    item.Incluir();
  }

  // Gives the movement's code. Stock that stays below nothing is no reason to refuse what was delivered.
  std::int32_t store_movement(const PurchaseLine& line, double unit_cost) {
    VOCardex& vo = *ledger_.ObVO;
    vo.RestaurarDefault();
    vo.Cd_PessoaUsuaria = station_.tenant();
    vo.Dt_Emissao = note_.header.delivered;
    vo.Nm_Doc = "NF " + std::to_string(note_.header.number);
    vo.No_Tipo = EntradaCompras;
    vo.Qt_Unidade = line.quantity;
    vo.Vl_Unitario = unit_cost;
    if (!gives_no_credit(line.situation)) vo.Tx_Icms = line.icms_rate;
    vo.Cd_SisTubulacao = only_piping(line);
    vo.Cd_Produto = line.product;
    ledger_.AtualizarEstoqueProduto(vo, Tp_EdicaoInclusao, false);
    vo.Cd_LancamentoCardex = numbers_.next();
    ledger_.Incluir();
    return vo.Cd_LancamentoCardex;
  }

  static std::uint8_t only_piping(const PurchaseLine& line) {
    std::uint8_t piping = line.deliveries.empty() ? std::uint8_t{0} : line.deliveries.front().piping;
    for (const TankShare& share : line.deliveries) {
      if (share.piping != piping) piping = 0;
    }
    return piping;
  }

  // A tank has one record of a note, whatever number of its lines went into it.
  void store_deliveries() {
    struct Delivery {
      std::int32_t product = 0;
      double litres = 0;
    };
    std::map<std::uint8_t, Delivery> tanks;
    for (const PurchaseLine& line : note_.lines) {
      for (const TankShare& share : line.deliveries) {
        tanks[share.tank].product = line.product;
        tanks[share.tank].litres += share.litres;
      }
    }
    for (const auto& [number, delivery] : tanks) {
      DALDescarga record(station_.settings);
      record.ObVO->Cd_PessoaUsuaria = station_.tenant();
      record.ObVO->No_Entrada = record_.ObVO->No_Entrada;
      record.ObVO->No_Tanque = number;
      record.ObVO->Cd_ProdutoDescarga = delivery.product;
      record.ObVO->Qt_UnidadeDescarga = delivery.litres;
      record.ObVO->Dt_Descarga = note_.header.delivered;
      record.Incluir();
    }
  }

  // Marks the note concluded where its fuels are all in tanks, or none is a fuel. Raises Refused where some litres of a
  // fuel are told and they are not all of them.
  void conclude() {
    bool concluded = true;
    Recordset fuels = record_.ItensAgrupadoPorCombustivelRs();
    for (; !fuels.EOF(); fuels.MoveNext()) {
      const auto product = fuels["Cd_ProdutoItem"].as<std::int32_t>();
      const double bought = fuels["SomaQt_UnidadeItem"].as<double>();
      Recordset in_tanks = record_.SomaDescargaDeUmProdutoRs(product);
      if (in_tanks.EOF()) {
        concluded = false;
        continue;
      }
      const double delivered = in_tanks["SomaDeQt_UnidadeDescarga"].as<double>();
      if (std::abs(delivered - bought) < kLeastLitres) continue;
      throw Refused{"as descargas do produto " + std::to_string(product) + " somam " +
                    format_number(delivered, kLitresPattern) + " de " + format_number(bought, kLitresPattern) +
                    ": diferença de " + format_number(delivered - bought, kLitresPattern)};
    }
    if (!concluded) return;
    record_.ObVO->Ic_Concluido = true;
    record_.Alterar();
  }

  Station& station_;
  const PurchaseNote& note_;
  std::vector<LineAmounts> amounts_;
  DALNotaEntrada record_;
  DALCardex ledger_;
  Sequence numbers_;
};

}  // namespace

PurchaseResult record_purchases(Station& station, const std::string& path) {
  PurchaseReader reader(station, path);
  PurchaseResult result;
  for (PurchaseNote note; reader.next(note);) {
    try {
      if (!note.fault.empty()) throw Refused{note.fault};
      Purchase(station, note).take() == Taken::stored ? ++result.stored : ++result.repeated;
    } catch (const Refused& refused) {
      result.refused.push_back({note.document, refused.reason});
    }
  }
  return result;
}

}  // namespace posto::flows
