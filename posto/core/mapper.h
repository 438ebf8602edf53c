// Moves values between value objects and records, by the names of columns.
#pragma once

#include "posto/ado/recordset.h"
#include "posto/core/composers.h"
#include "posto/core/sistema.h"
#include "posto/schema/value_object.h"
#include "posto/types/erro.h"

namespace posto {

// Runs one statement of an operation that goes on after errors 13, 438 and 440: such a failure is cleared and the next
// statement is up.
template <class Statement>
void tolerant(Statement&& statement) {
  try {
    statement();
  } catch (const Erro& failure) {
    std::int32_t n = failure.number();
    if (n != erro::kTypeMismatch && n != erro::kUnknownMember && n != erro::kAutomation) throw;
  }
}

// Value object to record: fills the fields of the current record from the properties of their names.
//  - A generated column is left alone; its value, where the record has one, goes into the property.
//  - A date before 01/01/1900, the empty one among them, becomes null.
//  - In a column whose name begins with Cd_, 0 and the empty text become null; a Cd_PessoaUsuaria of 0 becomes the user
//    company's.
//  - A text is cut at its column's width, when that is below 1000.
// Columns without a property stay as they are. Errors 13, 438 and 440 skip the field; any other failure goes on with
// the step " -> DALModulo.TransferirDadosDeVOParaBd, ".
void TransferirDadosDeVOParaBd(const VOSistema& settings, const ValueObject& vo, Recordset& record);

// Copies the named fields of the current record into the value object, so that it holds the key that the database gave.
// Failures go on with the step " -> DALModulo.pegarValorCamposSequencial, ". True.
bool pegarValorCamposSequencial(const ValueObject& vo, Names sequential_columns, Recordset& record);

// Record to value object: a column without a property is skipped, a null leaves its property as it was, and so does a
// value that the property's type cannot hold (13, 438, 440). Any other failure is raised.
void read_record(Recordset& record, const ValueObject& vo);

}  // namespace posto
