// Numbers that the library's statements supply: fuellings, ledger movements, releases.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "posto/core/sistema.h"

namespace posto::flows {

// The running number of one kind of record of the tenant, kept in SequenciadorGeral. It is read when the first number
// is asked for and written by store(): both belong in the transaction that uses the numbers, so that none is given
// twice and a transaction that is rolled back gives its numbers back. From the first number to its end that transaction
// holds the row: another workstation's waits, and may be told of a conflict (conflict.h) when it is its turn.
class Sequence {
 public:
  // `attribute`: the name of the numbered column, as in "Cd_Abastecimento".
  Sequence(std::shared_ptr<VOSistema> settings, const std::string& attribute);

  // Writes the row as it stands, so that whoever else wants it waits for the end of this transaction, or is told of a
  // conflict. False where no number was given out yet: there is no row.
  bool hold();
  std::int32_t next();                // raises 6 behind 2,147,483,647, and a conflict
  void store();                       // when a number was given out
  void forget() { loaded_ = false; }  // behind a rollback

 private:
  void load();

  std::shared_ptr<VOSistema> settings_;
  std::string name_;
  std::int32_t last_ = 0;
  std::int32_t stored_ = 0;
  bool loaded_ = false;
};

}  // namespace posto::flows
