// Enciphered settings and columns for callers that hold no DALSistema.
#pragma once

#include <string>
#include <string_view>

#include "posto/services/cipher.h"

namespace posto::Criptografia {

// The enciphered text, and the text of an enciphered one; an empty text counts as one blank. A failure of the cipher is
// 0x80040201 with the component's own description; it is saved, and raised with " -> Criptografia.<routine>" behind its
// source.
std::string Encriptar(std::string_view entrada);
std::string Desencriptar(std::string_view entrada);

// The same with the caller's component and as the routine's inside: the empty text is passed on as it is, and the
// source of a failure is the routine's name alone.
std::string Encriptar(ActiveCrypt& component, std::string_view entrada);
std::string Desencriptar(ActiveCrypt& component, std::string_view entrada);

}  // namespace posto::Criptografia
