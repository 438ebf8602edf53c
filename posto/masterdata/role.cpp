#include "posto/masterdata/role.h"

#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/masterdata/DALPessoa.h"

namespace posto {
namespace {

constexpr std::string_view kPersonKey[] = {"Cd_Pessoa"};
constexpr std::string_view kTaxNumber[] = {"Cd_CgcCpf"};

std::string operation_on(std::string_view verb, std::string_view table) {
  return std::string(verb) + std::string(table);
}

}  // namespace

// --- the one key of both records

std::int32_t PersonRole::company() {
  const std::int32_t own = code("Cd_PessoaUsuaria");
  return own != 0 ? own : tenant();
}

Names PersonRole::person_key() {
  if (has_value("Cd_Pessoa")) return kPersonKey;
  if (has_value("Cd_CgcCpf")) return kTaxNumber;
  return {};
}

void PersonRole::take_person(std::int32_t key) {
  vo().let("Cd_Pessoa", key);
  vo().let(role_key(), key);
}

// --- a record of either table

void PersonRole::change(std::string_view operation, const Description& table, Names key, bool saving) {
  routine(operation, [&] {
    Recordset record = open_by_key(table.table, key, !saving);
    require_record(record, table.table, !saving);
    change_record(record, table.sequence.names(), [&](Recordset& found) { fill(found); });
  });
}

void PersonRole::insert(std::string_view operation, const Description& table, std::string source) {
  routine(operation, [&] { insert_record(std::move(source), table.sequence.names()); });
}

// --- the person

void PersonRole::SalvarPessoa() {
  save(
      "SalvarPessoa",
      [&] {
        if (const std::int32_t key = code(role_key()); key != 0) take_person(key);
        change("AlterarPessoa", kPessoa, person_key(), true);
      },
      [&] {
        date_inclusion(vo());
        insert("IncluirPessoa", kPessoa, sql("Select * From Pessoa Where Cd_Pessoa = 0"));
      });
  take_person(code("Cd_Pessoa"));
}

void PersonRole::consult_person() {
  routine("ConsultarPessoa", [&] {
    Recordset record = open_by_key("Pessoa", person_key(), true);
    require_record(record, description().table, true);
    read_record(record, vo());
    record.Close();
    take_person(code("Cd_Pessoa"));
  });
}

bool PersonRole::CnpjOuCpfCadastradoComoPessoa() {
  return routine("CnpjOuCpfCadastradoComoPessoa", [&] {
    return take_first(sql(R"(
        SELECT Cd_Pessoa
        FROM   Pessoa
        WHERE  Pessoa.Cd_CgcCpf = '{}')",
                          tax_number()));
  });
}

bool PersonRole::stands_in_role() {
  const std::string_view role = description().table;
  return routine(operation_on("CnpjOuCpfCadastradoComo", role), [&] {
    const bool under_company = role_key() != "Cd_PessoaUsuaria";
    return take_first(sql(R"(
        SELECT {}
        FROM   Pessoa
               INNER JOIN {} On Pessoa.Cd_Pessoa = {}.{}
        WHERE  Pessoa.Cd_CgcCpf = '{}'{})",
                          role_key(), role, role, role_key(), tax_number(),
                          under_company ? sql(" And\r       {}.Cd_PessoaUsuaria = {}", role, company()) : ""));
  });
}

// Whether the statement gives a row; its first column is the person's key.
bool PersonRole::take_first(std::string statement) {
  Recordset found = read(std::move(statement));
  if (found.EOF()) return false;
  take_person(found[0].as<std::int32_t>());
  return true;
}

// --- the role

void PersonRole::consult_both(bool reset_when_missing, const Step& then) {
  consult(reset_when_missing, [&] {
    take_person(code(role_key()));
    Recordset person = open_by_key("Pessoa", kPersonKey, false);
    if (!person.EOF()) read_record(person, vo());
    person.Close();
    if (then) then();
  });
}

void PersonRole::change_role(bool saving) {
  change(operation_on("Alterar", description().table), description(), key_for(Purpose::change), saving);
}

void PersonRole::insert_role() {
  insert(operation_on("Incluir", description().table), description(), std::string(description().table));
}

void PersonRole::Alterar(bool Ic_Salvando) {
  routine("Alterar", [&] {
    SalvarPessoa();
    change_role(Ic_Salvando);
  });
}

void PersonRole::Incluir() {
  routine("Incluir", [&] {
    SalvarPessoa();
    insert_role();
  });
}

void PersonRole::CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao) {
  const std::string_view role = description().table;
  load_list_of(Ob_ComboBox, sql(R"(
       SELECT   {}.{}, Pessoa.Nm_Pessoa
       FROM     {}
       INNER JOIN Pessoa On {}.{} = Pessoa.Cd_Pessoa
      {}
       ORDER BY Pessoa.Nm_Pessoa )",
                                role, role_key(), role, role, role_key(), Ds_Condicao));
}

void PersonRole::list_record(ListItems& items, Recordset& record) {
  items.add(record["Nm_Pessoa"].Value(), record[role_key()].Value());
}

}  // namespace posto
