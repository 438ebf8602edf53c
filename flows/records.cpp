#include "flows/records.h"

#include <limits>

#include "flows/lookup.h"
#include "posto/core/error_vocabulary.h"
#include "posto/fiscal/DALECF.h"
#include "posto/fiscal/DALTipoRecebimento.h"
#include "posto/fiscal/catalogue.h"
#include "posto/forecourt/catalogue.h"
#include "posto/masterdata/DALCFOP.h"
#include "posto/masterdata/DALCartao.h"
#include "posto/masterdata/DALCliente.h"
#include "posto/masterdata/DALEmpenho.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/masterdata/DALFornecedor.h"
#include "posto/masterdata/DALFuncionario.h"
#include "posto/masterdata/DALGradeComissao.h"
#include "posto/masterdata/DALHorarioTrabalho.h"
#include "posto/masterdata/DALPessoa.h"
#include "posto/masterdata/DALUsuario.h"
#include "posto/masterdata/DALVeiculo.h"
#include "posto/masterdata/catalogue.h"
#include "posto/schema/treasury.h"
#include "posto/stock/DALProduto.h"

namespace posto::flows {
namespace {

// Tables that are registered as they stand.
POSTO_DESCRIPTION(ConBan, keys("Cd_PessoaUsuaria", "Cd_Banco", "Cd_Agencia", "Cd_Conta"))
POSTO_DESCRIPTION(ContaAReceber, keys("Cd_PessoaUsuaria", "Cd_ContaAReceber"))

// --- values

template <class Integer>
Integer integer_of(const CsvTable& row, std::string_view column) {
  using Limits = std::numeric_limits<Integer>;
  return static_cast<Integer>(row.integer(column, Limits::min(), Limits::max()));
}

Variant value_of(const CsvTable& row, const Property& property, std::string_view column) {
  switch (property.type) {
    case SqlType::bit:
      return row.yes(column);
    case SqlType::byte:
      return integer_of<std::uint8_t>(row, column);
    case SqlType::int16:
      return integer_of<std::int16_t>(row, column);
    case SqlType::int32:
      return integer_of<std::int32_t>(row, column);
    case SqlType::float32:
    case SqlType::float64:
      return row.figure(column);
    case SqlType::money:
      return row.decimal(column);
    case SqlType::date:
      return row.day(column);
    case SqlType::text:
      break;
  }
  return row.required(column, property.width > 0 ? property.width : std::string::npos);
}

// --- references

std::int32_t client_of(Station& station, const std::string& tax_number) {
  DALCliente client(station.settings);
  client.ObVO->Cd_PessoaUsuaria = station.tenant();
  client.ObVO->Cd_CgcCpf = tax_number;
  return client.CnpjOuCpfCadastradoComoCliente() ? client.ObVO->Cd_Cliente : 0;
}

std::int32_t person_of(Station& station, const std::string& tax_number) {
  DALPessoa person(station.settings);
  person.ObVO->Cd_CgcCpf = tax_number;
  return stands([&] { person.Consultar(); }) ? person.ObVO->Cd_Pessoa : 0;
}

struct Reference {
  std::string_view column, property;
  std::int32_t (*find)(Station& station, const std::string& text);
};
constexpr Reference kReferences[] = {{"cliente", "Cd_Cliente", client_of},
                                     {"pessoa", "Cd_Pessoa", person_of},
                                     {"avalista", "Cd_PessoaAvalista", person_of},
                                     {"produto", "Cd_Produto", product_of}};

const Reference* reference(std::string_view column) {
  for (const Reference& known : kReferences) {
    if (known.column == column) return &known;
  }
  return nullptr;
}

// --- records

void fill_field(Station& station, const CsvTable& row, const std::string& column, ValueObject& vo) {
  const Reference* known = reference(column);
  const Property* property = vo.layout().find(known != nullptr ? known->property : column);
  if (property == nullptr) row.fail("coluna desconhecida: " + column);
  if (row.text(column).empty()) return;
  if (known == nullptr) return vo.let(*property, value_of(row, *property, column));
  const std::int32_t code = known->find(station, row.text(column));
  if (code == 0) row.fail(column + " desconhecido: " + row.text(column));
  vo.let(*property, Variant(code));
}

void fill(Station& station, const CsvTable& row, ValueObject vo) {
  for (const std::string& column : row.columns()) fill_field(station, row, column, vo);
  if (vo.has("Cd_PessoaUsuaria")) vo.let("Cd_PessoaUsuaria", Variant(station.tenant()));
}

// A code that the database gives must be the one in the file, to which other files refer.
void require_generated(Station& station, const CsvTable& row, const std::string& key) {
  const auto generated = station.connection().Execute("SELECT @@IDENTITY As Codigo")["Codigo"].as<std::int32_t>();
  if (std::to_string(generated) == row.text(key)) return;
  row.fail("o banco deu o código " + std::to_string(generated) + " em lugar de " + row.text(key));
}

template <class DAL>
bool take_record(Station& station, const CsvTable& row) {
  DAL entity(station.settings);
  fill(station, row, by_name(*entity.ObVO));
  if (stands([&] { entity.Consultar(); })) {
    fill(station, row, by_name(*entity.ObVO));
    entity.Alterar();
    return false;
  }
  entity.Incluir();
  for (const std::string& key : entity.nomeCamposSequencial()) require_generated(station, row, key);
  return true;
}

template <class DAL, bool (DAL::*StandsInRole)()>
bool take_role(Station& station, const CsvTable& row) {
  DAL role(station.settings);
  row.required("Cd_CgcCpf", std::string::npos);
  fill(station, row, by_name(*role.ObVO));
  const bool known = (role.*StandsInRole)();
  if (known) {
    role.Consultar();
  } else if (role.CnpjOuCpfCadastradoComoPessoa()) {
    role.ConsultarPessoa();
  }
  fill(station, row, by_name(*role.ObVO));
  known ? role.Alterar() : role.Incluir();
  return !known;
}

// The station's own record, with its person: the parameters by which it works.
bool take_company(Station& station, const CsvTable& row) {
  DALEmpresaUsuaria company(station.settings);
  company.ObVO->Cd_PessoaUsuaria = station.tenant();
  company.Consultar();
  fill(station, row, by_name(*company.ObVO));
  company.Alterar();
  read_company(*station.settings, station.tenant());
  return false;
}

// Persons come first: other records refer to them by tax number.
constexpr RecordKind kKinds[] = {
    {"EmpresaUsuaria", take_company},
    {"Cliente", take_role<DALCliente, &DALCliente::CnpjOuCpfCadastradoComoCliente>},
    {"Fornecedor", take_role<DALFornecedor, &DALFornecedor::CnpjOuCpfCadastradoComoFornecedor>},
    {"Funcionario", take_role<DALFuncionario, &DALFuncionario::CnpjOuCpfCadastradoComoFuncionario>},
    {"Usuario", take_record<DALUsuario>},
    {"Veiculo", take_record<DALVeiculo>},
    {"Empenho", take_record<DALEmpenho>},
    {"TipoRecebimento", take_record<DALTipoRecebimento>},
    {"Produto", take_record<DALProduto>},
    {"Tanque", take_record<DALTanque>},
    {"ECF", take_record<DALECF>},
    {"PonVen", take_record<DALPonVen>},
    {"ConBan", take_record<Entity<VOConBan, kConBan>>},
    {"ContaAReceber", take_record<Entity<VOContaAReceber, kContaAReceber>>},
#define CLASS(table, ...) {#table, take_record<DAL##table>},
#define CATALOGUE CLASS
#include "posto/masterdata/catalogue.def"
#undef CATALOGUE
#undef CLASS
};

}  // namespace

std::span<const RecordKind> record_kinds() { return kKinds; }

}  // namespace posto::flows
