#include "posto/types/erro.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace posto {
namespace {

struct PlatformText {
  std::int32_t number;
  const char* text;
};

constexpr PlatformText kPlatformTexts[] = {
    {erro::kInvalidCall, "Invalid procedure call or argument"},
    {erro::kOverflow, "Overflow"},
    {erro::kTypeMismatch, "Type mismatch"},
    {erro::kFileNotFound, "File not found"},
    {erro::kPastEndOfFile, "Input past end of file"},
    {erro::kPathFileAccess, "Path/File access error"},
    {erro::kInvalidUseOfNull, "Invalid use of Null"},
    {erro::kUnknownMember, "Object doesn't support this property or method"},
    {erro::kAutomation, "Automation error"},
    {erro::kNotACollection, "Object not a collection"},
};

}  // namespace

Erro::Erro(std::int32_t number, std::string source, std::string description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(number_text(number_) + ": " + description_) {}

Erro::Erro(std::int32_t number, std::string source, std::string description, ProviderDetail detail)
    : Erro(number, std::move(source), std::move(description)) {
  provider_ = std::move(detail);
}

Erro Erro::with_step(std::string_view step) const {
  Erro further = *this;
  further.source_ += step;
  return further;
}

std::string number_text(std::int32_t number) {
  return number < 0 ? fmt::format("0x{:08X}", static_cast<std::uint32_t>(number)) : fmt::format("{}", number);
}

Erro platform_erro(std::int32_t number, std::string_view detail) {
  const auto* known = std::ranges::find(kPlatformTexts, number, &PlatformText::number);
  std::string description =
      known == std::end(kPlatformTexts) ? "Application-defined or object-defined error" : known->text;
  if (!detail.empty()) description.append(": ").append(detail);
  return Erro(number, {}, std::move(description));
}

}  // namespace posto
