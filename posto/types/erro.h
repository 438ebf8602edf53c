// The one failure type of the system.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

namespace posto {

// Turns the hexadecimal form in which a number is written down into the signed number that a caller compares.
constexpr std::int32_t erro_number(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

// Numbers that the platform and the data provider raise. The system's own numbers stand in core/error_vocabulary.h.
namespace erro {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kPastEndOfFile = 62;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kUnknownMember = 438;  // an object does not offer this property or method
inline constexpr std::int32_t kAutomation = 440;     // a failure inside an object called by name
inline constexpr std::int32_t kNotACollection = 451;
inline constexpr std::int32_t kInvalidArgument = 3001;
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kNotSupported = 3251;  // the cursor or lock type does not allow this
inline constexpr std::int32_t kNoSuchItem = 3265;    // no field or property of this name or index
inline constexpr std::int32_t kObjectClosed = 3704;
inline constexpr std::int32_t kObjectOpen = 3705;
inline constexpr std::int32_t kConnectionInvalid = 3709;
inline constexpr std::int32_t kProviderFailure = erro_number(0x80004005);
inline constexpr std::int32_t kConversion = erro_number(0x80040E07);  // a text that is no number or no date
inline constexpr std::int32_t kSyntax = erro_number(0x80040E14);      // a statement that the provider does not know
inline constexpr std::int32_t kIntegrity = erro_number(0x80040E2F);   // duplicate key, null in a required column
inline constexpr std::int32_t kTimeout = erro_number(0x80040E31);
inline constexpr std::int32_t kRowNotFound = erro_number(0x80040E38);   // the row of an update is gone or was changed
inline constexpr std::int32_t kDataOverflow = erro_number(0x80040E57);  // text too long, value out of range
}  // namespace erro

// What a database said about a failure, beside the provider's number.
struct ProviderDetail {
  std::string sqlstate{};        // five characters, or empty where the engine has none
  std::int32_t native_code = 0;  // the engine's own code
  std::string statement{};       // the statement as the library composed it
  bool connection_good = true;   // whether further statements can run on the connection
};

// A failure: its number, the path through the classes that it took (`source`, lowest step first, each step behind
// " -> ") and a description for a person. For a failure of the database also what the database said.
class Erro : public std::exception {
 public:
  Erro(std::int32_t number, std::string source, std::string description);
  Erro(std::int32_t number, std::string source, std::string description, ProviderDetail detail);

  std::int32_t number() const noexcept { return number_; }
  const std::string& source() const noexcept { return source_; }
  const std::string& description() const noexcept { return description_; }
  const std::optional<ProviderDetail>& provider() const noexcept { return provider_; }

  // The same failure, one step further up: `step` is appended to the source as it stands.
  Erro with_step(std::string_view step) const;

  // "0x80040E14: description", or "13: description" for a number of the platform.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
  std::optional<ProviderDetail> provider_;
  std::string what_;
};

// A number as it is shown to a person: hexadecimal for the numbers of objects and providers, decimal for the others.
std::string number_text(std::int32_t number);

// A failure that the platform itself describes (5 to 451): "Type mismatch", with `detail` ": " behind it. No source
// yet.
Erro platform_erro(std::int32_t number, std::string_view detail = {});

}  // namespace posto
