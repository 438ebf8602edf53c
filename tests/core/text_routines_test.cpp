#include "posto/core/text_routines.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/core/failures.h"

namespace posto {
namespace {

TEST(FixaTamanhoVariavel, CutsPadsAndStoresTheResult) {
  struct {
    const char* text;
    std::int16_t width;
    const char* pad;
    std::int32_t alignment;
    const char* field;
  } const cases[] = {
      {"ABC", 6, "0", 1, "000ABC"},   {"ABC", 6, "0", 0, "ABC000"}, {"ABC", 6, "0", 2, "00ABC0"},  // half of 3: 2
      {"ABC", 8, "0", 2, "00ABC000"},                                                              // half of 5: 2
      {"ABC", 4, "0", 2, "ABC0"},                                                                  // half of 1: 0
      {"ABC", 6, "0", 3, "ABC"},      {"ABC", 6, "0", -1, "ABC"},   {"   ", 3, " ", 0, "   "},
      {"  12 ", 4, "0x", 1, "0012"},  {"ABCDEF", 3, "0", 1, "ABC"}, {"ção", 2, " ", 0, "çã"},
      {"é", 3, "é", 2, "ééé"},        {"", 2, "0", 1, "00"},        {"ABC", 3, "", 1, "ABC"},
  };
  for (const auto& c : cases) {
    std::string text = c.text;
    EXPECT_EQ(FixaTamanhoVariavel(text, c.width, c.pad, c.alignment), c.field);
    EXPECT_EQ(text, c.field);
  }
}

TEST(FixaTamanhoVariavel, TakesANullAsTheEmptyText) {
  Variant null = Null{};
  EXPECT_EQ(FixaTamanhoVariavel(null, 3, "0", 1), "000");
  EXPECT_EQ(null, Variant("000"));
  Variant number = 42;
  EXPECT_EQ(FixaTamanhoVariavel(number, 5, "0", 1), "00042");
}

TEST(FixaTamanhoVariavel, FailsOutsideItsNumbers) {
  const char* source = " -> DALModulo.FixaTamanhoVariavel, ";
  std::string text = "ABC";
  expect_failure(erro::kInvalidCall, source, [&] { FixaTamanhoVariavel(text, -1, "0", 0); });
  expect_failure(erro::kInvalidCall, source, [&] { FixaTamanhoVariavel(text, 4, "", 0); });
  EXPECT_EQ(text, "ABC");
  std::string longest(32767, 'x');
  EXPECT_EQ(FixaTamanhoVariavel(longest, 2, "0", 0), "xx");
  std::string too_long(32768, 'x');
  expect_failure(erro::kOverflow, source, [&] { FixaTamanhoVariavel(too_long, 2, "0", 0); });
}

std::string every_ascii_and_more() {
  std::string text = "éÇ€";
  for (char c = 1; c < 127; ++c) text += c;
  return text;
}

TEST(RetiraCaracteres, EachFormKeepsItsOwnSet) {
  const std::string text = every_ascii_and_more();
  const std::string digits = "0123456789", upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ", lower = "abcdefghijklmnopqrstuvwxyz";
  EXPECT_EQ(RetiraCaracteresNaoNumericos(text), digits);
  EXPECT_EQ(DALModulo::RetiraCaracteresEspeciais(text), digits + upper + lower);
  EXPECT_EQ(BOModulo::RetiraCaracteresEspeciais(text), " !\"#$%&'()*+,-./" + digits + upper + lower);
}

TEST(RetiraCaracteres, TheEightBitCounterCountsCharacters) {
  std::string text;
  for (int i = 0; i < 127; ++i) text += "é1";  // 254 characters, 381 bytes
  EXPECT_EQ(RetiraCaracteresNaoNumericos(text), std::string(127, '1'));
  EXPECT_EQ(DALModulo::RetiraCaracteresEspeciais(text), std::string(127, '1'));
  text += "1";
  expect_failure(erro::kOverflow, " -> DALModulo.RetiraCaracteresNaoNumericos, ",
                 [&] { RetiraCaracteresNaoNumericos(text); });
  expect_failure(erro::kOverflow, " -> DALModulo.RetiraCaracteresEspeciais, ",
                 [&] { DALModulo::RetiraCaracteresEspeciais(text); });
  EXPECT_EQ(BOModulo::RetiraCaracteresEspeciais(text), std::string(128, '1'));
}

class LinhaArquivoTexto : public ::testing::Test {
 protected:
  LinhaArquivoTexto() { std::filesystem::create_directory(folder_); }
  ~LinhaArquivoTexto() override { std::filesystem::remove_all(folder_); }

  void write(std::string_view bytes) { std::ofstream(file_, std::ios::binary) << bytes; }
  std::string bytes() {
    std::ifstream in(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() / ("posto_text_" + std::to_string(getpid()));
  std::string file_ = folder_ / "Arquivo.txt";
};

TEST_F(LinhaArquivoTexto, WritesOneLineOfWindows1252) {
  write("something that is longer than the line");
  EXPECT_EQ(GravaLinhaArquivoTexto(file_, "Ação 5 €"), 0U);
  EXPECT_EQ(bytes(), "A\xE7\xE3o 5 \x80\r\n");
  EXPECT_EQ(LeLinhaArquivoTexto(file_), "Ação 5 €");
  EXPECT_EQ(GravaLinhaArquivoTexto(file_, "日本"), 2U);
  EXPECT_EQ(bytes(), "??\r\n");
}

TEST_F(LinhaArquivoTexto, ReadsTheFirstLine) {
  EXPECT_EQ(LeLinhaArquivoTexto(file_), "");
  EXPECT_EQ(LeLinhaArquivoTexto(folder_), "");
  for (const char* text : {"one", "one\r\ntwo", "one\ntwo", "one\rtwo\n"}) {
    write(text);
    EXPECT_EQ(LeLinhaArquivoTexto(file_), "one");
  }
  for (const char* text : {"", "\r\ntwo"}) {
    write(text);
    EXPECT_EQ(LeLinhaArquivoTexto(file_), "");
  }
}

TEST_F(LinhaArquivoTexto, SaysWhichFileCannotBeMade) {
  const char* source = " -> String.GravaLinhaArquivoTexto, ";
  const std::string nowhere = folder_ / "none" / "a.txt";
  expect_failure(erro::kPathFileAccess, source, [&] { GravaLinhaArquivoTexto(folder_, "x"); });
  expect_failure(76, source, [&] { GravaLinhaArquivoTexto(nowhere, "x"); });
  EXPECT_EQ(failure_of([&] { GravaLinhaArquivoTexto(nowhere, "x"); })->description(), "Path not found: " + nowhere);
}

TEST_F(LinhaArquivoTexto, FailsOnAFileThatCannotBeOpened) {
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};  // a file that nobody can open, whoever runs the test
  std::ranges::copy(file_, address.sun_path);
  const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  expect_failure(erro::kPathFileAccess, " -> String.LeLinhaArquivoTexto, ", [&] { LeLinhaArquivoTexto(file_); });
  close(handle);
}

}  // namespace
}  // namespace posto
