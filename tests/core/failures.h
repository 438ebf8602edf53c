// What tests of failures ask.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "posto/types/erro.h"

namespace posto {

// The failure that `body` ends in; nothing when it does not fail.
template <class Body>
std::optional<Erro> failure_of(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const Erro& failure) {
    return failure;
  }
  return std::nullopt;
}

// Expects the number and the path of the failure that `body` ends in.
template <class Body>
void expect_failure(std::int32_t number, std::string_view source, Body&& body) {
  const auto failure = failure_of(std::forward<Body>(body));
  ASSERT_TRUE(failure) << "no failure";
  EXPECT_EQ(failure->number(), number);
  EXPECT_EQ(failure->source(), source);
}

}  // namespace posto
