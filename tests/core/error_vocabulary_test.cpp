#include "posto/core/error_vocabulary.h"

#include "posto/core/sistema.h"
#include "tests/core/failures.h"

namespace posto {
namespace {

TEST(ErrorVocabulary, MessagesOfTheSystemsOwnNumbersOnly) {
  EXPECT_EQ(MensagemDeErro(erro_number(0x80040201)),
            "Nao informado identificador do registro (chave, codigo ou PK ...)");
  EXPECT_EQ(MensagemDeErro(erro::kNotSupportedByPrinter), "Função não suportada pelo modelo de ECF utilizado");
  EXPECT_EQ(MensagemDeErro(erro_number(0x80040335)), MensagemDeErro(erro_number(0x8004032F)));
  for (std::int32_t number : {0, 513, 13, erro::kSyntax, erro::kRuleViolation, erro::kExportDataFault}) {
    EXPECT_EQ(MensagemDeErro(number), "");
  }
}

TEST(ErrorVocabulary, AClassRaisesItsMessageWithItsOperation) {
  const Erro failure = table_erro(erro::kRecordNotFound, "DALBairro", "Consultar", "(Bairro)");
  EXPECT_EQ(failure.number(), erro_number(0x80040202));
  EXPECT_EQ(failure.description(), "Registro nao encontrado(Bairro)");
  EXPECT_EQ(failure.source(), " -> DALBairro.Consultar, ");
}

TEST(ErrorVocabulary, AGuardExtendsTheSourceAndKeepsTheRest) {
  const auto failure =
      failure_of([] { guarded("DALModulo", "sqlSelect", [] { throw Erro(erro::kTypeMismatch, "origem", "texto"); }); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kTypeMismatch);
  EXPECT_EQ(failure->description(), "texto");
  EXPECT_EQ(failure->source(), "origem -> DALModulo.sqlSelect, ");
}

TEST(ErrorVocabulary, TheSavedErrorGoesOutWhole) {
  const Erro failure(erro::kSyntax, "banco", "erro", {.sqlstate = "42000", .native_code = 156, .statement = "SELEC"});
  for (const bool with_extra : {false, true}) {
    SalvarErro(failure, with_extra ? "mais" : "");
    const auto raised = failure_of([] { LevantarErroSalvo(" -> DALBairro.Excluir"); });
    ASSERT_TRUE(raised);
    EXPECT_EQ(raised->number(), erro::kSyntax);
    EXPECT_EQ(raised->source(), "banco -> DALBairro.Excluir");
    EXPECT_EQ(raised->description(), with_extra ? "erro mais" : "erro");
    ASSERT_TRUE(raised->provider());
    EXPECT_EQ(raised->provider()->statement, "SELEC");
    EXPECT_EQ(raised->provider()->native_code, 156);
  }
  SalvarErro(Erro(erro::kTypeMismatch, "", "tipo"), "mais");
  const auto raised = failure_of([] { LevantarErroSalvo(" -> x"); });
  EXPECT_EQ(raised->description(), "tipo mais");
  EXPECT_FALSE(raised->provider());
}

TEST(ErrorVocabulary, CipherCodesAllRaiseTheMissingKey) {
  for (const std::int16_t quiet : std::initializer_list<std::int16_t>{0, 100, 122, 133, -101})
    EXPECT_FALSE(failure_of([&] { TraduzirErroActiveCrypt("r", quiet); }));
  struct {
    std::int16_t code;
    const char* description;
  } const cases[] = {{101, "Invalid key size."},
                     {121, "Error generating public key."},
                     {123, "Unknown error while encryption."},
                     {132, "Sign verify error"}};
  for (const auto& c : cases) {
    const auto failure = failure_of([&] { TraduzirErroActiveCrypt("Descriptografar", c.code); });
    ASSERT_TRUE(failure) << c.code;
    EXPECT_EQ(failure->number(), erro_number(0x80040201));
    EXPECT_EQ(failure->source(), "Descriptografar");
    EXPECT_EQ(failure->description(), c.description);
  }
}

TEST(Tracing, AFailureLeavesTheRoutineUnderItsClass) {
  VOSistema settings;
  std::string told;
  settings.on_routine = [&](bool entering, std::string_view routine) {
    told.append(entering ? "+" : "-").append(routine);
  };
  settings.EntrarRotina("A");
  settings.EntrarRotina("B");
  settings.SairRotina("DALBairro.C");  // passed through, never entered
  EXPECT_EQ(settings.routines(), (std::vector<std::string>{"A", "B"}));
  settings.SairRotina("DALBairro.B");
  settings.SairRotina("A");
  settings.SairRotina("A");
  EXPECT_TRUE(settings.routines().empty());
  EXPECT_EQ(told, "+A+B-DALBairro.C-DALBairro.B-A-A");
}

}  // namespace
}  // namespace posto
