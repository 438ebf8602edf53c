// How the database orders, hashes and matches text. Every character has two weights: its place among the letters and
// symbols, and its accent. Texts are ordered by all the places first, and by the accents only where the places are
// equal.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "posto/types/text.h"
#include "posto/types/utf8.h"

namespace posto {
namespace {

struct Weight {
  std::uint32_t place;
  std::uint32_t accent;
  auto operator<=>(const Weight&) const = default;
};

constexpr std::uint8_t kNoPlace = 0;             // in the table of bytes: part of a longer character
constexpr std::uint32_t kBehindLetters = 0x100;  // places of the characters that have none of their own

constexpr std::string_view kSymbols = "_-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$";

// The places of ASCII: blank, controls, symbols, digits, letters.
constexpr auto kPlaces = [] {
  std::array<std::uint8_t, 256> places{};
  std::uint8_t next = 1;
  places[' '] = next++;
  for (std::size_t c = 0; c < ' '; ++c) places[c] = next++;
  places[0x7F] = next++;
  for (char c : kSymbols) places[static_cast<unsigned char>(c)] = next++;
  for (std::size_t c = '0'; c <= '9'; ++c) places[c] = next++;
  for (std::size_t c = 'a'; c <= 'z'; ++c) places[c] = places[c - 'a' + 'A'] = next++;
  return places;
}();
static_assert(std::count(kPlaces.begin(), kPlaces.begin() + 128, kNoPlace) == 0, "every ASCII character has a place");

enum Accent : std::uint8_t {
  kPlain,
  kGrave,
  kAcute,
  kCircumflex,
  kTilde,
  kDiaeresis,
  kRing,
  kCaron,
  kCedilla,
  kStroke,
  kJoined
};

struct AccentedLetter {
  char base;
  Accent accent;
};

// U+00C0 to U+00DF; the small letters stand 32 further on. A base of 0 is no letter.
constexpr std::array<AccentedLetter, 32> kLatin1 = {{
    {'a', kGrave},  {'a', kAcute},   {'a', kCircumflex}, {'a', kTilde},      {'a', kDiaeresis},  {'a', kRing},
    {'a', kJoined}, {'c', kCedilla}, {'e', kGrave},      {'e', kAcute},      {'e', kCircumflex}, {'e', kDiaeresis},
    {'i', kGrave},  {'i', kAcute},   {'i', kCircumflex}, {'i', kDiaeresis},  {'d', kStroke},     {'n', kTilde},
    {'o', kGrave},  {'o', kAcute},   {'o', kCircumflex}, {'o', kTilde},      {'o', kDiaeresis},  {0, kPlain},
    {'o', kStroke}, {'u', kGrave},   {'u', kAcute},      {'u', kCircumflex}, {'u', kDiaeresis},  {'y', kAcute},
    {'t', kJoined}, {'s', kJoined},
}};

AccentedLetter accented_letter(char32_t code) {
  switch (code) {
    case 0x00FF:
    case 0x0178:
      return {'y', kDiaeresis};
    case 0x0152:
    case 0x0153:
      return {'o', kJoined};
    case 0x0160:
    case 0x0161:
      return {'s', kCaron};
    case 0x017D:
    case 0x017E:
      return {'z', kCaron};
    default:
      return code >= 0xC0 && code < 0xFF ? kLatin1[(code - 0xC0) % 32] : AccentedLetter{0, kPlain};
  }
}

Weight weight_of(char32_t code) {
  if (code < 0x80) return {kPlaces[code], kPlain};
  const AccentedLetter letter = accented_letter(code);
  if (letter.base == 0) return {kBehindLetters + static_cast<std::uint32_t>(code), kPlain};
  return {kPlaces[static_cast<unsigned char>(letter.base)], letter.accent};
}

// Reads a text's weights one by one.
class Weights {
 public:
  explicit Weights(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  bool done() const { return at_ == end_; }
  // The place of the next character when it is one byte long, else kNoPlace.
  std::uint8_t short_place() const { return kPlaces[static_cast<unsigned char>(*at_)]; }
  void skip_byte() { ++at_; }
  Weight next() {
    const auto [code, length] = decode_utf8(at_, end_);
    at_ += length;
    return weight_of(code);
  }

 private:
  const char* at_;
  const char* end_;
};

// The [set] of a pattern, from behind the bracket.
struct Set {
  Weights items;
  bool excluding;

  bool contains(Weight wanted) const {
    bool found = false;
    for (Weights rest = items; !found && !rest.done();) found = in_next_range(rest, wanted);
    return found != excluding;
  }

 private:
  static bool in_next_range(Weights& rest, Weight wanted) {
    const Weight first = rest.next();
    Weights behind = rest;
    if (behind.done() || behind.next() != weight_of('-') || behind.done()) return first == wanted;
    const Weight last = behind.next();
    rest = behind;
    return first <= wanted && wanted <= last;
  }
};

// A place in a pattern: what it asks of one character, and where it goes on.
class PatternCursor {
 public:
  explicit PatternCursor(std::string_view rest) : rest_(rest) {}

  bool done() const { return rest_.empty(); }
  bool at_run() const { return rest_.starts_with('%'); }
  void skip_run() { rest_.remove_prefix(1); }

  // Whether the next item of the pattern takes this character; if so the cursor moves behind the item.
  bool take(Weight wanted) {
    const auto item = rest_.starts_with('[') ? rest_.find(']') : std::size_t{0};
    if (item == std::string_view::npos) return false;
    if (item > 0) {
      std::string_view inside = rest_.substr(1, item - 1);
      const bool excluding = inside.starts_with('^');
      if (excluding) inside.remove_prefix(1);
      if (!Set{Weights(inside), excluding}.contains(wanted)) return false;
      rest_.remove_prefix(item + 1);
      return true;
    }
    const auto [code, length] = decode_utf8(rest_.data(), rest_.data() + rest_.size());
    if (code != U'_' && weight_of(code) != wanted) return false;
    rest_.remove_prefix(length);
    return true;
  }

 private:
  std::string_view rest_;
};

// How many bytes in front are the same in both texts and end with a whole character in both.
std::size_t common_bytes(std::string_view a, std::string_view b) {
  const std::size_t most = std::min(a.size(), b.size());
  std::size_t same = 0;
  while (same + sizeof(std::uint64_t) <= most && std::memcmp(&a[same], &b[same], sizeof(std::uint64_t)) == 0) {
    same += sizeof(std::uint64_t);
  }
  while (same < most && a[same] == b[same]) ++same;
  if (same == a.size() && same == b.size()) return same;
  while (same > 0 && kPlaces[static_cast<unsigned char>(a[same - 1])] == kNoPlace) --same;
  return same;
}

}  // namespace

int compare_text(std::string_view a, std::string_view b) {
  a = trim_end(a);
  b = trim_end(b);
  const std::size_t same = common_bytes(a, b);
  Weights left(a.substr(same)), right(b.substr(same));
  int by_accent = 0;
  while (!left.done() && !right.done()) {
    const std::uint8_t left_place = left.short_place(), right_place = right.short_place();
    if (left_place != kNoPlace && right_place != kNoPlace) {
      if (left_place != right_place) return left_place < right_place ? -1 : 1;
      left.skip_byte();
      right.skip_byte();
      continue;
    }
    const Weight l = left.next(), r = right.next();
    if (l.place != r.place) return l.place < r.place ? -1 : 1;
    if (by_accent == 0 && l.accent != r.accent) by_accent = l.accent < r.accent ? -1 : 1;
  }
  if (!left.done()) return 1;
  if (!right.done()) return -1;
  return by_accent;
}

std::size_t hash_text(std::string_view text) {
  constexpr std::uint64_t kBasis = 14695981039346656037u, kPrime = 1099511628211u;
  std::uint64_t hash = kBasis;
  for (Weights weights(trim_end(text)); !weights.done();) {
    const Weight weight = weights.next();
    hash = (hash ^ (std::uint64_t{weight.place} << 4 | weight.accent)) * kPrime;
  }
  return static_cast<std::size_t>(hash ^ hash >> 32);
}

bool like_text(std::string_view text, std::string_view pattern) {
  Weights rest(text);
  PatternCursor cursor(pattern);
  // Where to try again when the items behind the last run do not fit: the run takes one character more.
  bool had_run = false;
  Weights retry_text = rest;
  PatternCursor retry_pattern = cursor;
  while (true) {
    if (cursor.at_run()) {
      cursor.skip_run();
      had_run = true;
      retry_text = rest;
      retry_pattern = cursor;
      continue;
    }
    if (rest.done() && cursor.done()) return true;
    if (!rest.done() && !cursor.done() && cursor.take(rest.next())) continue;
    if (!had_run || retry_text.done()) return false;
    retry_text.next();
    rest = retry_text;
    cursor = retry_pattern;
  }
}

}  // namespace posto
