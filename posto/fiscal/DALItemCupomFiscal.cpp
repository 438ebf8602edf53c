#include "posto/fiscal/DALItemCupomFiscal.h"

#include "posto/core/column_list.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {
namespace {

// Insert and update write prices, rates and consumption with other routines, and an update cuts no text.
constexpr ListColumn kLineColumns[] = {
    {"Cd_PessoaUsuaria", integer(kNullWhenEmpty), integer()},
    {"No_Impressora", tiny_int()},
    {"No_CupomFiscal", integer()},
    {"Dt_Emissao", day()},
    {"No_Item", tiny_int()},
    {"Cd_Produto", integer(kNullWhenEmpty), integer()},
    {"Qt_Unidade", float32(8)},
    {"Vl_UnitTabela", money(3), float32(8)},
    {"Vl_UnitVenda", money(3), float32(4)},
    {"Vl_AltAut", money(3), float32(4)},
    {"Vl_AltDig", money(3), float32(4)},
    {"No_SitTributaria", var_char(3), quoted()},
    {"Cd_Unidade", var_char(2), quoted()},
    {"Tx_Icms", real(8), money(2)},
    {"Tx_BaseCalculo", real(8), money(2)},
    {"No_TribIcms", var_char(1), quoted()},
    {"Cd_SisTubulacao", tiny_int(kNullWhenEmpty)},
    {"Cd_PonVen", integer(kNullWhenEmpty)},
    {"Cd_CFOP", var_char(4), quoted()},
    {"Cd_CompCFOP", var_char(2), quoted()},
    {"Cd_Abastecimento", integer(kNullWhenEmpty)},
    {"Cd_LancamentoCardex", integer(kNullWhenEmpty)},
    {"Cd_Bomba", tiny_int(kNullWhenEmpty)},
    {"Qt_KmPorLitro", money(3), money(8)},
    {"Vl_ComissaoVendedor", money(2)},
};

const ColumnList& column_list() {
  static const ColumnList kList("ItemCupomFiscal", kLineColumns, layout_of<VOItemCupomFiscal>());
  return kList;
}

constexpr Names kKey = kItemCupomFiscal.keys[0].names();

}  // namespace

void DALItemCupomFiscal::Alterar(bool Ic_Salvando) {
  routine("Alterar", [&] {
    if (!has_values(kKey)) raise_missing(!Ic_Salvando);
    execute(column_list().update_statement(vo(), *ObVOSistema, kKey));
  });
}

std::string DALItemCupomFiscal::instrucaoInsert() {
  return routine("instrucaoInsert", [&] { return column_list().insert_statement(vo(), *ObVOSistema); });
}

bool DALItemCupomFiscal::Incluir() {
  return routine("Incluir", [&] {
    execute(instrucaoInsert());
    return true;
  });
}

void DALItemCupomFiscal::Excluir() {
  routine("Excluir", [&] {
    if (!has_values(kKey)) raise_missing(true);
    execute(sql(R"(
        UPDATE ItemCupomFiscal
        SET    Ic_Excluido = -1,
               Cd_LancamentoCardex = NULL,
               Cd_Abastecimento = NULL
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {} And
               No_CupomFiscal = {} And
               Dt_Emissao = {} And
               No_Item = {})",
                ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, ObVO->No_CupomFiscal,
                DateSemHoraToSql(ObVO->Dt_Emissao, *ObVOSistema), ObVO->No_Item));
  });
}

}  // namespace posto
