#include <iostream>

#include "posto/schema/forecourt.h"
#include "posto/types/currency.h"

int main() {
  posto::VOBomba bomba;
  bomba.let("cd_bomba", posto::Variant(7));
  std::cout << bomba.Cd_Bomba << " " << posto::Currency::parse("0.10005").text() << "\n";
}
