// What the commands of the program have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>

#include "flows/station.h"

namespace posto::program {

// The status of the program.
enum Status : int { kDone = 0, kRefused = 1, kWrongUse = 2, kFailed = 3 };

// The form of an answer: aligned for a person, or for a program.
enum class Form { aligned, csv, json };

// The options of every command, and the status that the command leaves.
struct Session {
  std::string database;
  std::int32_t company = 0;
  bool trace = false;
  Status status = kDone;

  flows::Station open() const;
  StatementObserver observer() const;  // prints each statement on standard error under --trace
};

// Adds a command that works on a database, with the options that all of them have; `run` is the command.
CLI::App* add_command(CLI::App& app, Session& session, const char* name, const char* description,
                      std::function<void()> run);

// Adds --csv and --json.
void add_form(CLI::App* command, Form& form);

// Adds an option that takes a day (yyyy-mm-dd).
void add_day(CLI::App* command, const char* name, Date& day, const char* description);

// Wrong use where a period ends before it begins. Either day may be empty.
void require_period(Date first, Date last);

// What the value of an option must be.
CLI::Validator whole_number(std::int32_t least = 1, std::int32_t most = std::numeric_limits<std::int32_t>::max());
CLI::Validator existing_file();
CLI::Validator existing_folder();

// A progress line on standard error, where that is a terminal; nothing in a pipe.
class ProgressLine {
 public:
  explicit ProgressLine(std::string what);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  // `detail`: what is being worked on.
  void show(std::size_t done, std::size_t total, std::string_view detail = {});

 private:
  std::string what_;
  bool terminal_;
  int shown_ = -1;
  std::string detail_;
};

// The commands, each in the file of its name.
void add_criar(CLI::App& app, Session& session);
void add_cadastrar(CLI::App& app, Session& session);
void add_importar(CLI::App& app, Session& session);
void add_pendentes(CLI::App& app, Session& session);
void add_estoque(CLI::App& app, Session& session);
void add_bicos(CLI::App& app, Session& session);
void add_buscar(CLI::App& app, Session& session);
void add_configurar(CLI::App& app, Session& session);
void add_bloquear_credito(CLI::App& app, Session& session);
void add_consolidar(CLI::App& app, Session& session);
void add_fechar(CLI::App& app, Session& session);
void add_aceitos(CLI::App& app, Session& session);
void add_reabrir(CLI::App& app, Session& session);
void add_recalcular(CLI::App& app, Session& session);
void add_entrada(CLI::App& app, Session& session);
void add_nota(CLI::App& app, Session& session);
void add_reducao(CLI::App& app, Session& session);
void add_caixa(CLI::App& app, Session& session);
void add_vender(CLI::App& app, Session& session);
void add_baixar(CLI::App& app, Session& session);
void add_cupom(CLI::App& app, Session& session);
void add_sql(CLI::App& app, Session& session);

}  // namespace posto::program
