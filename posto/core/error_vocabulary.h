// How the classes report failures: the system's own numbers and messages, the step that each routine adds to the source
// of a failure that passes through it, and the saved error.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "posto/types/erro.h"

namespace posto {

namespace erro {
#define ERRO(name, bits, message) inline constexpr std::int32_t name = erro_number(bits);
#include "posto/core/error_vocabulary.def"
#undef ERRO
// Two numbers have no message of their own: the class that raises them says what was wrong.
inline constexpr std::int32_t kRuleViolation = erro_number(0x80040660);
inline constexpr std::int32_t kExportDataFault = erro_number(0x80040661);
}  // namespace erro

// The message of one of the system's own numbers; the empty text for any other number.
std::string_view MensagemDeErro(std::int32_t number);

// The step that a routine adds to a source: " -> DALModulo.sqlSelect, ".
std::string routine_step(std::string_view module, std::string_view routine);

// Runs `body` as the inside of a routine: a failure goes on with its number and description and the routine's step.
template <class Body>
decltype(auto) guarded(std::string_view module, std::string_view routine, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const Erro& failure) {
    throw failure.with_step(routine_step(module, routine));
  }
}

// One of the system's own failures as a class raises it: the source names the operation (" -> DALBairro.Consultar, "),
// the description is the number's message with `behind` directly behind it ("(Bairro)").
Erro table_erro(std::int32_t number, std::string_view class_name, std::string_view operation,
                std::string_view behind = {});

// Keeps a failure, whole, until LevantarErroSalvo raises it. There is one saved error for the whole library. An `extra`
// text stands behind the description and a blank.
void SalvarErro(const Erro& failure, std::string_view extra = {});
// Raises the saved error with `source_tail` behind its source. Raises 5 when none was ever saved.
[[noreturn]] void LevantarErroSalvo(std::string_view source_tail);

// Raises what an error code of the cipher component (101 to 132) stands for: always number 0x80040201, with the
// routine's name as the source and the component's own text. Returns quietly for any other code.
void TraduzirErroActiveCrypt(std::string_view routine, std::int16_t code);

}  // namespace posto
