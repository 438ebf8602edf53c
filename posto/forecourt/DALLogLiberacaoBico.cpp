#include "posto/forecourt/DALLogLiberacaoBico.h"

#include "posto/core/column_list.h"

namespace posto {
namespace {

constexpr ListColumn kLogColumns[] = {
    {"No_Liberacao", integer()},
    {"Cd_PessoaUsuaria", integer()},
    {"Cd_Bomba", integer()},
    {"No_TipoVencimento", integer()},
    {"Ic_BaixaAutomatica", bit()},
    {"No_TipoPagamento", integer()},
    {"Cd_Veiculo", var_char(8, kNullWhenEmpty)},
    {"Cd_Funcionario", integer(kNullWhenEmpty)},
    {"Dt_Liberacao", moment()},
    {"Cd_Caixa", integer(kNullWhenEmpty)},
    {"No_TipoHardware", integer()},
};

}  // namespace

std::string DALLogLiberacaoBico::instrucaoInsert() {
  static const ColumnList kList("LogLiberacaoBico", kLogColumns, layout_of<VOLogLiberacaoBico>());
  return routine("instrucaoInsert", [&] { return kList.insert_statement(vo(), *ObVOSistema); });
}

void DALLogLiberacaoBico::Incluir() {
  routine("Incluir", [&] { execute(instrucaoInsert()); });
}

}  // namespace posto
