#include "posto/core/sql.h"

namespace posto {

std::string compose_sql(const SqlPieces& text, std::span<const SqlPart> parts) {
  std::string out;
  out.reserve(text.raw().size() + 24 * parts.size());
  for (const SqlPieces::Piece& piece : text.pieces()) {
    out.append(text.raw(), piece.begin, piece.size);
    if (piece.then == SqlPieces::Then::line_end) {
      out += '\r';
    } else if (piece.then == SqlPieces::Then::hole) {
      out += parts.front().text();
      parts = parts.subspan(1);
    }
  }
  return out;
}

}  // namespace posto
