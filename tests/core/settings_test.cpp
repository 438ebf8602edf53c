#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "posto/core/DALSistema.h"
#include "posto/core/criptografia.h"
#include "posto/core/error_vocabulary.h"
#include "posto/types/text.h"
#include "tests/core/failures.h"

namespace posto {
namespace {

namespace fs = std::filesystem;

// A cipher component that fails with a code, from its n-th operation on.
class FailingCrypt : public ActiveCrypt {
 public:
  explicit FailingCrypt(std::int16_t code, int good = 0) : code_(code), good_(good) {}
  std::string encrypt(std::string_view text, std::int32_t algorithm, std::string_view key) override {
    return good_-- > 0 ? ActiveCrypt::encrypt(text, algorithm, key) : failed(code_);
  }
  std::string decrypt(std::string_view text, std::int32_t algorithm, std::string_view key) override {
    return good_-- > 0 ? ActiveCrypt::decrypt(text, algorithm, key) : failed(code_);
  }

 private:
  std::int16_t code_;
  int good_;
};

class Settings : public ::testing::Test {
 protected:
  Settings() {
    fs::remove_all(folder_);
    fs::create_directory(folder_);
  }
  ~Settings() override { fs::remove_all(folder_); }

  DALSistema store() const { return DALSistema(folder_); }
  VOSistema consulted() const { return store().Consultar(); }
  void write(std::string_view bytes) const { replace_file(file_, bytes); }
  std::string bytes() const { return read_file(file_); }
  void set(std::string_view section, std::string_view key, std::string_view value) const {
    change_profile(file_, [&](ProfileText& text) { text.write(section, key, value); });
  }

  std::string folder_ = fs::temp_directory_path() / ("posto_settings_" + std::to_string(getpid()));
  std::string file_ = folder_ + "/posto.ini";
};

// Values that no two settings share and that are no defaults.
Variant value_for(const Setting& setting, std::int32_t number) {
  switch (setting.property->type) {
    case SqlType::bit:
      return true;
    case SqlType::byte:
      return static_cast<std::uint8_t>(100 + number);
    case SqlType::int16:
      return static_cast<std::int16_t>(-1000 - number);
    case SqlType::int32:
      return 70'000 + number;
    case SqlType::date:
      return Date::of_moment(2026, 11, 24, 18, 10, number % 60);
    default:
      return "Ação \"" + std::to_string(number) + "\" ; €";
  }
}

void fill(VOSistema& settings) {
  std::int32_t number = 0;
  for (const Setting& setting : all_settings()) settings.let(setting.key, value_for(setting, ++number));
}

TEST_F(Settings, EverySettingButOneComesBack) {
  DALSistema writer = store();
  fill(*writer.ObVO);
  EXPECT_EQ(writer.Salvar(), Variant());
  EXPECT_TRUE(writer.replaced().empty());
  VOSistema read = consulted();
  EXPECT_EQ(read.Nm_RLDll, "");
  read.Nm_RLDll = writer.ObVO->Nm_RLDll;
  for (const Setting& setting : all_settings()) {
    EXPECT_EQ(read.get(setting.key), writer.ObVO->get(setting.key)) << setting.key;
  }
  EXPECT_EQ(read_file(folder_ + "/Source"), "A\xE7\xE3o \"32\" ; \x80\r\n");
}

TEST_F(Settings, StandInTheFileAsItIsKnown) {
  DALSistema writer = store();
  fill(*writer.ObVO);
  writer.Salvar();
  const std::string text = bytes();
  for (const char* line :
       {"\r\nCd_PessoaUsuaria=70028\r\n", "\r\nIc_GravarLog=Verdadeiro\r\n", "\r\nSource=veja arquivo source\r\n",
        "\r\nDs_Senha=A\xE7\xE3o \"", "\r\nRLDll=p1:", "\r\nNo_PortaECF=p1:", "\r\nDs_SenhaDB=p1:",
        "\r\nDt_UltimoBackupCompleto=24/11/2026 18:10:"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(text.find("Nm_RLDll"), std::string::npos);
  const ProfileText file(text);
  std::string sections;
  std::size_t at = 0;
  std::size_t enciphered = 0;
  for (const Setting& setting : all_settings()) {
    const std::size_t found = text.find("\n" + std::string(setting.written_key) + "=");
    EXPECT_TRUE(found > at || setting.section == "Tecban") << setting.key << " stands out of its order";
    at = found;
    enciphered += file.read(setting.section, setting.written_key).starts_with("p1:") ? 1U : 0U;
  }
  EXPECT_EQ(enciphered, 30U);  // 27 of the program's identity, the database's password, the printer's port and number
  EXPECT_EQ(text.find("[Tecban]"), std::string::npos) << "the section stands there as TecBan";
}

TEST_F(Settings, AMissingOrWrongValueLeavesItsProperty) {
  DALSistema reader = store();
  const StoredSettings defaults = *reader.ObVO;
  EXPECT_EQ(static_cast<const StoredSettings&>(reader.Consultar(true)), defaults) << "there is no file";
  EXPECT_FALSE(fs::exists(file_));
  fill(*reader.ObVO);
  StoredSettings filled = *reader.ObVO;
  write(
      "[Persistencia]\r\nCursor=\r\nLockType=two\r\nDs_FormatoData=\"  \"\r\n[EmpresaUsuaria]\r\nIc_GravarLog=sim\r\n"
      "[Backup]\r\nDt_UltimoBackupCompleto=31/02/2026\r\n[VENDA]\r\nno_tipointerface = \" 2\"\r\n");
  reader.Consultar();
  filled.No_TipoInterface = 2;
  filled.Source = "";  // which is missing, too
  EXPECT_EQ(static_cast<const StoredSettings&>(*reader.ObVO), filled);
}

TEST_F(Settings, ReadsValuesAsTheyAreStored) {
  const std::string x254(254, 'x');
  struct {
    const char* name;
    std::string text;
    Variant value;
  } const cases[] = {
      {"Persistencia.Provider", "\"  a b  \"", "a b  "},  // blanks before it do not count
      {"Persistencia.Provider", x254 + "y", x254},
      {"TECBAN.Ds_FormaPagamentoTecban", "Cartão", "Cartão"},
      {"EmpresaUsuaria.Ic_GravarLog", "Verdadeiro", true},
      {"EmpresaUsuaria.Ic_GravarLog", "FALSO", false},
      {"EmpresaUsuaria.Ic_GravarLog", "true", true},
      {"EmpresaUsuaria.Ic_GravarLog", "-1", true},
      {"EmpresaUsuaria.Ic_GravarLog", "0", false},
      {"Venda.No_TipoInterface", "255", std::uint8_t{255}},
      {"Venda.Qt_MaximaRecebimentoPorSangria", "-32768", std::int16_t{-32768}},
      {"Venda.Ic_PararNaQuantidade", "+2147483647", 2147483647},
      {"Backup.Dt_UltimoEspelhamentoBkp", "3/4/2009", Date::of_day(2009, 4, 3)},
      {"Backup.Dt_UltimoEspelhamentoBkp", "03/04/2009 07:08", Date::of_moment(2009, 4, 3, 7, 8, 0)},
      {"Backup.Dt_UltimoEspelhamentoBkp", "2009-04-03 07:08:09", Date::of_moment(2009, 4, 3, 7, 8, 9)},
      {"Backup.Dt_UltimoEspelhamentoBkp", "07:08:09", Date::of_moment(1899, 12, 30, 7, 8, 9)},
      {"Backup.Dt_UltimoEspelhamentoBkp", "00:00:00", Date()},
  };
  for (const auto& c : cases) {
    const std::string_view name = c.name;
    const std::size_t point = name.find('.');
    set(name.substr(0, point), name.substr(point + 1), c.text);
    EXPECT_EQ(consulted().get(name.substr(point + 1)), c.value) << c.name << "=" << c.text;
  }
}

TEST(SettingText, OfDatesIsAsShortAsTheyAre) {
  EXPECT_EQ(setting_text(Date::of_moment(2026, 1, 2, 3, 4, 5)), "02/01/2026 03:04:05");
  EXPECT_EQ(setting_text(Date::of_day(2026, 1, 2)), "02/01/2026");
  EXPECT_EQ(setting_text(Date()), "00:00:00");
}

RC_GTEST_PROP(SettingText, ReadsBack, ()) {
  const auto second = *rc::gen::inRange<std::int64_t>(-4'000'000'000, 250'000'000'000);  // 1773 to 9822
  const Date date = Date::of_millis(second * 1000);
  const Setting& setting = *find_setting("backup", "dt_ultimobackupcompleto");
  RC_ASSERT(setting_value(setting, setting_text(date)) == Variant(date));
}

TEST_F(Settings, ANumberThatDoesNotFitEndsTheReading) {
  write("[EmpresaUsuaria]\nCd_PessoaUsuaria=7\n[Venda]\nNo_TipoInterface=256\nIc_PararNaQuantidade=1\n");
  DALSistema reader = store();
  const auto failure = failure_of([&] { reader.Consultar(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kOverflow);
  EXPECT_EQ(failure->source(), ", DALSistema.Consultar");
  EXPECT_EQ(failure->description(), "Overflow: Venda.No_TipoInterface");
  EXPECT_EQ(reader.ObVO->Cd_PessoaUsuaria, 7);
  EXPECT_EQ(reader.ObVO->Ic_PararNaQuantidade, 0);
}

TEST_F(Settings, ATextThatDoesNotDecipherEndsTheReading) {
  const std::string good = Criptografia::Encriptar("COM3");
  struct {
    std::string text;
    const char* description;
  } const cases[] = {
      {good.substr(0, 40) + (good[40] == 'A' ? "B" : "A") + good.substr(41), "Decrypt error."},
      {good.substr(0, good.size() - 1), "Base64 decode error"},
      {"COM3", "Malformed input"},
      {ActiveCrypt().encrypt("COM3", 6, "another program's key"), "Decrypt error."},
      // One that is longer than what is read.
      {Criptografia::Encriptar(std::string(170, 'x')), "Base64 decode error"},
  };
  for (const auto& c : cases) {
    for (const auto& [section, key, source] :
         {std::tuple("Persistencia", "Ds_SenhaDB", "Desencriptar, DALSistema.Consultar"),
          std::tuple("ECF", "No_PortaECF", "Desencriptar -> Criptografia.Desencriptar, DALSistema.Consultar")}) {
      write("");
      set(section, key, c.text);
      expect_failure(erro::kMissingKey, source, [&] { consulted(); });
      EXPECT_EQ(failure_of([&] { consulted(); })->description(), c.description) << c.text;
    }
  }
}

TEST_F(Settings, AFailedSaveWritesNothing) {
  write("[Venda]\nNo_TipoInterface=2\n");
  replace_file(folder_ + "/Source", "old\r\n");
  const auto expect_refusal = [&](std::int32_t number, std::string_view source, DALSistema& writer) {
    expect_failure(number, source, [&] { writer.Salvar(); });
    EXPECT_EQ(bytes(), "[Venda]\nNo_TipoInterface=2\n");
    EXPECT_EQ(read_file(folder_ + "/Source"), "old\r\n");
  };
  DALSistema failing = store();
  failing.ObCrypt = std::make_shared<FailingCrypt>(cipher::kSymmetricError, 27);  // at the database's password
  expect_refusal(erro::kMissingKey, "Encriptar, DALSistema.Salvar", failing);
  DALSistema lines = store();
  lines.ObVO->Ds_Login = "x\nNo_TipoInterface=3";
  expect_refusal(erro::kInvalidCall, ", DALSistema.Salvar", lines);
  lines.ObVO->RestaurarDefault();
  lines.ObVO->Source = "a\r\nb";
  expect_refusal(erro::kInvalidCall, ", DALSistema.Salvar", lines);
  DALSistema longest = store();
  longest.ObVO->Ds_EnderecoDesenvolvedor = std::string(159, 'x');
  expect_refusal(erro::kOverflow, ", DALSistema.Salvar", longest);
  longest.ObVO->Ds_EnderecoDesenvolvedor.pop_back();
  longest.Salvar();
  EXPECT_EQ(consulted().Ds_EnderecoDesenvolvedor, std::string(158, 'x'));
  EXPECT_EQ(failure_of([] { DALSistema("/proc").Salvar(); })->number(), erro::kPathFileAccess);
}

TEST_F(Settings, SaysWhichCharactersWereReplaced) {
  DALSistema writer = store();
  writer.ObVO->Ds_Login = "日";
  writer.ObVO->Source = "本";
  writer.ObVO->Nm_Gab = "語";  // enciphered, so that any character has its place
  writer.Salvar();
  std::vector<std::string_view> keys;
  for (const Setting* setting : writer.replaced()) keys.push_back(setting->key);
  EXPECT_EQ(keys, (std::vector<std::string_view>{"Ds_Login", "Source"}));
  EXPECT_EQ(consulted().Nm_Gab, "語");
}

TEST_F(Settings, AnEmptyTextIsEncipheredAsABlank) {
  DALSistema empty = store();
  std::string text;
  const std::string secret = empty.Encriptar(text);
  EXPECT_EQ(text, " ");
  EXPECT_EQ(empty.Desencriptar(secret), " ");
  EXPECT_EQ(Criptografia::Desencriptar(Criptografia::Encriptar("")), " ");
  expect_failure(erro::kMissingKey, "Desencriptar", [&] { empty.Desencriptar(""); });
  expect_failure(erro::kMissingKey, "Desencriptar -> Criptografia.Desencriptar",
                 [&] { Criptografia::Desencriptar(""); });
  expect_failure(erro::kMissingKey, "Desencriptar", [] { LevantarErroSalvo(""); });  // it was saved on its way
  empty.ObCrypt = std::make_shared<FailingCrypt>(std::int16_t{133});  // a code that the table does not know
  EXPECT_EQ(empty.Encriptar(text), "");
  empty.ObCrypt = std::make_shared<ActiveCrypt>();
  empty.Salvar();
  EXPECT_EQ(consulted().Nm_Desenvolvedor, " ");
}

TEST_F(Settings, TheLeftoverFileIsDeleted) {
  replace_file(folder_ + "/VR5.TXT", "x");
  replace_file(folder_ + "/Vr5.txt.old", "x");
  store();
  EXPECT_FALSE(fs::exists(folder_ + "/VR5.TXT"));
  EXPECT_TRUE(fs::exists(folder_ + "/Vr5.txt.old"));
  fs::create_directory(folder_ + "/Vr5.txt");
  store();
  EXPECT_TRUE(fs::exists(folder_ + "/Vr5.txt")) << "a folder is no file";
}

TEST_F(Settings, AreInspectedOneByOne) {
  write(
      "[EmpresaUsuaria]\nCd_PessoaUsuaria=7\nIc_GravarLog=sim\n[Persistencia]\nDs_SenhaDB=x\n[Venda]\n"
      "No_TipoInterface=256\n[Software]\nNm_Gab=" +
      Criptografia::Encriptar(" ") + "\n");
  std::vector<std::string> wrong;
  std::size_t good = 0;
  for (const StoredSetting& found : store().inspect()) {
    if (found.state == SettingState::good) ++good;
    if (found.state == SettingState::not_deciphered || found.state == SettingState::not_converted) {
      wrong.push_back(found.setting->name());
    }
    EXPECT_EQ(found.value.is_null(), found.state != SettingState::good);
  }
  EXPECT_EQ(good, 1U);
  EXPECT_EQ(wrong, (std::vector<std::string>{"EmpresaUsuaria.Ic_GravarLog", "Persistencia.Ds_SenhaDB",
                                             "Venda.No_TipoInterface"}));
}

TEST_F(Settings, ChangesTouchNothingElse) {
  write("; mine\n[Outro]\nX=1\n[software]\nRLDll=kept\n[VENDA]\nNo_TipoInterface = 1\n");
  const auto change = [&](std::vector<std::pair<const char*, std::string>> changes) {
    std::vector<SettingChange> list;
    for (const auto& [name, text] : changes) {
      const std::string_view view = name;
      const std::size_t point = view.find('.');
      list.push_back({find_setting(view.substr(0, point), view.substr(point + 1)), text});
    }
    store().change(list);
  };
  change({{"Venda.No_TipoInterface", " 2"}, {"Persistencia.Source", "C:\\Dados"}, {"Software.Nm_RLDll", "é"}});
  const VOSistema read = consulted();
  EXPECT_EQ(read.No_TipoInterface, 2);
  EXPECT_EQ(read.Source, "C:\\Dados");
  EXPECT_EQ(read.Nm_RLDll, "é");
  const std::string text = bytes();
  EXPECT_TRUE(text.starts_with("; mine\n[Outro]\nX=1\n[software]\nRLDll=kept\nNm_RLDll=p1:"));
  EXPECT_TRUE(text.ends_with("\n[VENDA]\nNo_TipoInterface = 2\n\n[Persistencia]\nSource=veja arquivo source\n"));

  for (const auto& setting :
       std::vector<std::pair<const char*, std::string>>{{"Venda.No_TipoInterface", "256"},
                                                        {"Venda.No_TipoInterface", "x"},
                                                        {"EmpresaUsuaria.Ic_GravarLog", "sim"},
                                                        {"Backup.Dt_UltimoBackupCompleto", "30/02/2026"},
                                                        {"Persistencia.Provider", " x"},
                                                        {"Persistencia.Provider", "'x'"},
                                                        {"Persistencia.Provider", "x\ny"},
                                                        {"Persistencia.Provider", "日"},
                                                        {"Persistencia.Provider", std::string(255, 'x')},
                                                        {"Persistencia.Source", "日"},
                                                        {"Persistencia.Source", "a\nb"},
                                                        {"Persistencia.Ds_SenhaDB", std::string(159, 'x')}}) {
    const auto failure = failure_of([&] { change({{"Venda.Ic_PararNaQuantidade", "1"}, setting}); });
    ASSERT_TRUE(failure) << setting.first << "=" << setting.second;
    EXPECT_EQ(failure->number(), erro::kRuleViolation);
    EXPECT_TRUE(failure->description().starts_with(std::string(setting.first) + ": o valor não é "));
    EXPECT_EQ(bytes(), text);
  }
  change({{"Venda.No_TipoInterface", ""}, {"Persistencia.Source", ""}});
  EXPECT_EQ(consulted().No_TipoInterface, 0);
  EXPECT_EQ(consulted().Source, "");
}

// What is secret is told nowhere: not in a failure, not to who watches the routines.
TEST_F(Settings, NoFailureTellsASecret) {
  const std::string secret = "segredo-77";
  const auto expect_silent = [&](auto body) {
    const auto failure = failure_of(body);
    ASSERT_TRUE(failure);
    for (const std::string& text : {failure->description(), failure->source(), std::string(failure->what())}) {
      EXPECT_EQ(text.find(secret), std::string::npos) << text;
      EXPECT_EQ(text.find("bralumetisqorpan"), std::string::npos) << text;
    }
  };
  const Setting& port = *find_setting("ECF", "No_PortaECF");
  expect_silent([&] { setting_value(port, secret); });
  expect_silent([&] { store().change(std::vector<SettingChange>{{&port, secret}}); });
  DALSistema writer = store();
  std::vector<std::string> told;
  writer.ObVO->on_routine = [&](bool, std::string_view routine) { told.emplace_back(routine); };
  writer.ObVO->Ds_SenhaDB = secret;
  writer.ObVO->Ds_Senha = secret + "\n";
  expect_silent([&] { writer.Salvar(); });
  writer.ObVO->Ds_Senha = "";
  writer.Salvar();
  set("Persistencia", "Ds_SenhaDB", secret);
  expect_silent([&] { writer.Consultar(); });
  for (const std::string& routine : told) EXPECT_EQ(routine.find(secret), std::string::npos);
}

}  // namespace
}  // namespace posto
