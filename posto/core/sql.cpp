#include "posto/core/sql.h"

namespace posto {

std::string compose_sql(const SqlPieces& text, std::span<const SqlPart> parts) {
  const std::string_view raw = text.raw();
  std::size_t most = raw.size();  // holes and indentation go
  for (const SqlPart& part : parts) most += part.text().size();
  std::string out(most, '\0');
  char* at = out.data();
  auto take = [&](std::string_view piece) { at += piece.copy(at, piece.size()); };
  for (const SqlPieces::Piece& piece : text.pieces()) {
    take(raw.substr(piece.begin, piece.size));
    const std::size_t behind = piece.begin + piece.size;
    if (behind == raw.size()) break;
    if (raw[behind] == '\n') {
      *at++ = '\r';
    } else {
      take(parts.front().text());
      parts = parts.subspan(1);
    }
  }
  out.resize(static_cast<std::size_t>(at - out.data()));
  return out;
}

}  // namespace posto
