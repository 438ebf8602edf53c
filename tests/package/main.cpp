#include <iostream>
#include <string>

#include "posto/schema/forecourt.h"
#include "posto/types/currency.h"

int main() {
  posto::VOBomba bomba;
  bomba.let("de_enderecologicobico", posto::Variant(std::string("07")));
  std::cout << bomba.De_EnderecoLogicoBico << " " << posto::Currency::parse("0.10005").text() << "\n";
}
