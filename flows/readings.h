// A line of the pump automation's file: its fields, and whether they can be true.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

// One delivery as the automation tells it. Litres and totaliser are exact decimals here.
struct Reading {
  std::string address;  // of the nozzle, two characters
  std::int16_t counter = 0;
  Date end;
  std::int16_t seconds = 0;
  Currency litres;
  Currency price;  // a litre
  Currency total;
  Currency totaliser;  // behind the delivery

  bool operator==(const Reading&) const = default;
};

// Why a line is refused, for a person.
using Refusal = std::string;

inline constexpr std::string_view kReadingHeader = "bico,contador,termino,segundos,litros,preco,total,encerrante";

// The reading of a line, or why there is none: wrong encoding, wrong number of fields, a field that does not read as
// what it is, a figure that is not positive, a total that differs from litres by price by a cent or more.
std::variant<Reading, Refusal> parse_reading(std::string_view line);

// What is known of a nozzle when a reading comes in.
struct NozzleState {
  Currency totaliser;  // behind its last delivery
  Date last_end;       // of that delivery; empty when there is none
};

// Why a reading cannot follow the nozzle's last one: its totaliser runs backwards, leaves a gap or overlaps, or it
// ended earlier. Nothing when it follows.
std::optional<Refusal> contradiction(const Reading& reading, const NozzleState& state);

}  // namespace posto::flows
