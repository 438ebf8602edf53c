// A progress form without a screen.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "posto/services/late_bound.h"

namespace posto {

// What long work shows while it runs, called by name: Caption and Acao (texts), Progresso.Max and Progresso.Value
// (whole numbers), Percentual.Caption (text), Show and Refresh. A property of a control on the form is asked for by its
// path. Raises 438 for any other name, 13 and 6 for a value that is no such text or number.
class MemoryProgress final : public LateBound {
 public:
  std::string caption, action, percentage;
  std::int32_t max = 0, value = 0;
  bool shown = false;
  std::function<void(const MemoryProgress&)> on_refresh;  // draws the form, when there is something to draw on

  Variant call(std::string_view method, std::span<const Variant> arguments) override;
  Variant get(std::string_view property, std::span<const Variant> arguments) override;
  void let(std::string_view property, std::span<const Variant> arguments) override;

 private:
  std::string* text(std::string_view property);
  std::int32_t* number(std::string_view property);
};

}  // namespace posto
