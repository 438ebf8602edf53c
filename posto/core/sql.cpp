#include "posto/core/sql.h"

namespace posto {

std::string compose_sql(const SqlPieces& text, std::span<const SqlPart> parts) {
  const std::string_view raw = text.raw();
  std::string out;
  out.reserve(raw.size() + 24 * parts.size());
  for (const SqlPieces::Piece& piece : text.pieces()) {
    const std::size_t behind = piece.begin + piece.size;
    out.append(raw.data() + piece.begin, piece.size);
    if (behind == raw.size()) break;
    if (raw[behind] == '\n') {
      out += '\r';
    } else {
      out += parts.front().text();
      parts = parts.subspan(1);
    }
  }
  return out;
}

}  // namespace posto
