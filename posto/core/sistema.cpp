#include "posto/core/sistema.h"

namespace posto {

void VOSistema::EntrarRotina(std::string_view routine) {
  routines_.emplace_back(routine);
  if (on_routine) on_routine(true, routine);
}

void VOSistema::SairRotina(std::string_view routine) {
  // The failure road tells "Class.Operation" where the way in told the operation alone.
  const std::size_t point = routine.rfind('.');
  const std::string_view operation = point == std::string_view::npos ? routine : routine.substr(point + 1);
  if (!routines_.empty() && routines_.back() == operation) routines_.pop_back();
  if (on_routine) on_routine(false, routine);
}

}  // namespace posto
