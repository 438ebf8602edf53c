// Classes of the fiscal sales that are a template and nothing else: one line of facts each.
#pragma once

#include "posto/core/describe.h"
#include "posto/core/list_entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

// Lines of purchase notes, which hang on the note's No_Entrada.
POSTO_DESCRIPTION(ItemNotaEntrada, keys("Cd_PessoaUsuaria", "No_Entrada", "No_Item"), by_query_of("No_Entrada = 0"))
using DALItemNotaEntrada = Entity<VOItemNotaEntrada, kItemNotaEntrada>;

// A receipt's part in a coupon. Without a coupon Consultar reads the first of the receipt's.
POSTO_DESCRIPTION(RecebimentoCupom,
                  keys("Cd_PessoaUsuaria", "No_Impressora", "No_CupomFiscal", "Dt_Emissao", "No_Recebimento"),
                  read_keys("Cd_PessoaUsuaria", "No_Recebimento"),
                  by_query_of("Cd_PessoaUsuaria = 0 and No_Impressora = 0 and No_CupomFiscal = 0 and "
                              "Dt_Emissao = Null and No_Recebimento = 0"))
using DALRecebimentoCupom = Entity<VORecebimentoCupom, kRecebimentoCupom>;

// Sales to customers' cards, which wait for approval.
POSTO_DESCRIPTION(VendaCartaoPorCupomFiscal, keys("Cd_PessoaUsuaria", "No_Impressora", "No_CupomFiscal", "Dt_Emissao",
                                                  "Cd_TipoCartao", "Cd_Cartao"))
using DALVendaCartaoPorCupomFiscal = Entity<VOVendaCartaoPorCupomFiscal, kVendaCartaoPorCupomFiscal>;

// A printer's day as it reported it, and its lines of tax.
POSTO_DESCRIPTION(ECFRegistro60Mestre, keys("Cd_PessoaUsuaria", "No_Impressora", "Dt_Movimento"),
                  by_query_of("Cd_PessoaUsuaria = 0 and No_Impressora = 0 and Dt_Movimento = Null"))
using DALECFRegistro60Mestre = Entity<VOECFRegistro60Mestre, kECFRegistro60Mestre>;
POSTO_DESCRIPTION(ECFRegistro60Analitico, keys("Cd_PessoaUsuaria", "No_Impressora", "Ds_TipoRegistro", "Dt_Movimento"),
                  by_query_of("Cd_PessoaUsuaria = 0 and No_Impressora = 0 and Ds_TipoRegistro = '' and "
                              "Dt_Movimento = Null"))
using DALECFRegistro60Analitico = Entity<VOECFRegistro60Analitico, kECFRegistro60Analitico>;

// Points of sale: the desks at which a sale is entered.
POSTO_DESCRIPTION(PDV, keys("Cd_PessoaUsuaria", "Cd_PDV"), generated, list("Nm_PDV"))
using DALPDV = Entity<VOPDV, kPDV>;

// Places of sale: where in the station goods are sold from.
POSTO_DESCRIPTION(PonVen, keys("Cd_PessoaUsuaria", "Cd_PonVen"))
using DALPonVen = Entity<VOPonVen, kPonVen>;

// The company's places of sale, by number.
inline constexpr Description kPonVens{
    .class_name = "DALPonVens", .table = "PonVen", .keys = {{"Cd_PessoaUsuaria"}}, .list = {.order = "Cd_PonVen"}};
using DALPonVens = ListEntity<kPonVens>;

// The kinds of receipt, by name.
inline constexpr Description kTiposRecebimento{
    .class_name = "DALTiposRecebimento", .table = "TipoRecebimento", .list = {.order = "Nm_TipoRecebimento"}};
using DALTiposRecebimento = ListEntity<kTiposRecebimento>;

}  // namespace posto
