#include "posto/core/sistema.h"

namespace posto {

void VOSistema::EntrarRotina(std::string_view routine) {
  routines_.emplace_back(routine);
  if (on_routine) on_routine(true, routine);
}

void VOSistema::SairRotina(std::string_view routine) {
  if (!routines_.empty() && routines_.back() == routine) routines_.pop_back();
  if (on_routine) on_routine(false, routine);
}

}  // namespace posto
