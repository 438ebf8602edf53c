// A person in a role: customer, supplier, employee, user company. The role is a table of its own whose key is the
// person's key; the value object of the role holds both records. Written once over the role's description, of which
// the last key column is the role's key (Cd_Cliente, ...).
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "posto/core/entity.h"

namespace posto {

// What every role does, beside Excluir of the standard entity, which deletes the role and leaves the person.
//
// The role's key and Cd_Pessoa are one value: where both are set and differ, the role's key counts. There is no
// transaction around the two records: a role that cannot be written leaves its person written.
class PersonRole : public EntityBase {
 public:
  // SalvarPessoa, then the change of the role's record. Raises 0x80040201 without Cd_PessoaUsuaria or key, 0x80040202
  // with "(<table>)" when the person does not have the role; both reset the value object unless Ic_Salvando.
  void Alterar(bool Ic_Salvando = false);
  // SalvarPessoa, then the new record of the role.
  void Incluir();
  // Changes the person that the key, otherwise the tax number finds; adds one, with today as Dt_Inclusao, when there is
  // none. Then the value object holds the person's key, as Cd_Pessoa and as the role's key.
  void SalvarPessoa();
  // Whether a person, of whatever company, has the value object's tax number: then its key is put into the value
  // object, so that the next save gives the role to that person.
  bool CnpjOuCpfCadastradoComoPessoa();
  // The standard list, with the names of the persons.
  void CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao = {});

 protected:
  using EntityBase::EntityBase;

  // CnpjOuCpfCadastradoComo<Role>: the same among those who have the role in the value object's user company.
  bool stands_in_role();
  // The role's record alone, as Alterar<Role> and Incluir<Role> in the path of a failure.
  void change_role(bool saving);
  void insert_role();
  // Consultar over both records, with `then` behind the reading.
  void consult_both(bool reset_when_missing, const Step& then = {});
  void consult_person();
  void list_record(ListItems& items, Recordset& record) override;

  std::string_view role_key() const { return description().keys[0].last(); }
  // The value object's user company, or where it holds none the settings'.
  std::int32_t company();

 private:
  std::int32_t code(std::string_view column) { return vo().get(column).as<std::int32_t>(); }
  std::string tax_number() { return vo().get("Cd_CgcCpf").as<std::string>(); }
  Names person_key();
  void take_person(std::int32_t key);
  bool take_first(std::string statement);
  void change(std::string_view operation, const Description& table, Names key, bool saving);
  void insert(std::string_view operation, const Description& table, std::string source);
};

// A role over its table's value object.
template <class VO, const Description& kDescription>
class Role : public PersonRole {
 public:
  Role() : PersonRole(kDescription) {}
  explicit Role(std::shared_ptr<VOSistema> settings) : PersonRole(kDescription, std::move(settings)) {}

  // The record on which the operations work: the role's and the person's.
  std::shared_ptr<VO> ObVO = std::make_shared<VO>();

  // The standard Consultar of the role's record; then the person's is read too, so that an Alterar behind it does not
  // empty the person.
  VO& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false) {
    consult_both(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    return *ObVO;
  }
  // Reads the person by Cd_Pessoa, otherwise by Cd_CgcCpf. Raises 0x80040201 with neither, and 0x80040202 with
  // "(<role's table>)" when there is no such person; both reset the value object, whatever the flag says.
  VO& ConsultarPessoa([[maybe_unused]] bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false) {
    consult_person();
    return *ObVO;
  }

 protected:
  ValueObject vo() override { return by_name(*ObVO); }
};

}  // namespace posto
