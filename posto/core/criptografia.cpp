#include "posto/core/criptografia.h"

#include "posto/core/error_vocabulary.h"

namespace posto::Criptografia {
namespace {

constexpr std::string_view kKey = "bralumetisqorpan";

// What the component gives, unless it says that it failed.
std::string checked(const ActiveCrypt& component, std::string result, std::string_view routine) {
  if (component.last_error() != cipher::kNoError) TraduzirErroActiveCrypt(routine, component.last_error());
  return result;
}

using Operation = std::string (*)(ActiveCrypt&, std::string_view);

std::string in_module(Operation operation, std::string_view text, std::string_view routine) {
  try {
    ActiveCrypt component;
    return operation(component, text.empty() ? " " : text);
  } catch (const Erro& failure) {
    SalvarErro(failure);
    LevantarErroSalvo(std::string(" -> Criptografia.").append(routine));
  }
}

}  // namespace

std::string Encriptar(ActiveCrypt& component, std::string_view entrada) {
  return checked(component, component.encrypt(entrada, cipher::kAuthenticated, kKey), "Encriptar");
}

std::string Desencriptar(ActiveCrypt& component, std::string_view entrada) {
  return checked(component, component.decrypt(entrada, cipher::kAuthenticated, kKey), "Desencriptar");
}

std::string Encriptar(std::string_view entrada) { return in_module(Encriptar, entrada, "Encriptar"); }
std::string Desencriptar(std::string_view entrada) { return in_module(Desencriptar, entrada, "Desencriptar"); }

}  // namespace posto::Criptografia
