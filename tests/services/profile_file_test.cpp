#include "posto/services/profile_file.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "posto/services/files.h"
#include "posto/types/text.h"
#include "tests/core/failures.h"

namespace posto {
namespace {

namespace fs = std::filesystem;

TEST(ProfileText, ReadsAsTheSystemDoes) {
  const ProfileText text(
      "Solta=fora\r\n"
      "; comment\r\n"
      "[ Venda ]\r\n"
      "; No_Tipo=9\n"
      "  No_Tipo \t=\t 2 \r\n"
      "No_Tipo=3\r\n"
      "Vazia=\r\n"
      "Sem valor\r\n"
      "Ds_Login = \" a \" \r\n"
      "Simples='x'\r\n"
      "Meia=\"x\r\n"
      "Uma=\"\r\n"
      "Duas=\"\"x\"\"\r\n"
      "Comentada=1 ; um\r\n"
      "Igual=a=b\r\n"
      "[ECF\r\n"
      "[Outra] ; [Venda]\r\n"
      "No_Tipo=4\r\n"
      "[VENDA]\r\n"
      "No_Tipo=5\r\n"
      "Nova=Ma\xE7\xE3 \x80");
  struct {
    const char *section, *key, *value;
  } const cases[] = {
      {"Venda", "No_Tipo", "2"},        {"vEnDa", "NO_TIPO", "2"},    {"Venda", "Vazia", ""},
      {"Venda", "Sem valor", ""},       {"Venda", "Ds_Login", " a "}, {"Venda", "Simples", "x"},
      {"Venda", "Meia", "\"x"},         {"Venda", "Uma", "\""},       {"Venda", "Duas", "\"x\""},
      {"Venda", "Comentada", "1 ; um"}, {"Venda", "Igual", "a=b"},    {"Venda", "Solta", ""},
      {"ECF", "No_Tipo", ""},           {"Outra", "No_Tipo", "4"},    {"Venda", "Nova", "Maçã €"},
      {"Nenhuma", "No_Tipo", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(text.read(c.section, c.key), c.value) << c.section << "." << c.key;
}

TEST(ProfileText, AValueEndsAtTheLongest) {
  ProfileText text;
  text.write("A", "B", std::string(253, 'x') + "éy");
  EXPECT_EQ(text.read("A", "B"), std::string(253, 'x') + "é");
  text.write("A", "B", "\"" + std::string(254, 'x') + "\"");
  EXPECT_EQ(text.read("A", "B"), std::string(254, 'x'));
}

TEST(ProfileText, AWriteLeavesEverythingElse) {
  struct {
    const char *before, *section, *key, *value, *after;
  } const cases[] = {
      {"", "A", "K", "1", "[A]\r\nK=1\r\n"},
      {"[A]\nK = \t1 \n; end", "a", "k", "2", "[A]\nK = \t2\n; end"},
      {"[A]\nK=1\nK=2\n", "A", "K", "3", "[A]\nK=3\nK=2\n"},
      {"[A]\r\nK=1", "A", "L", "2", "[A]\r\nK=1\r\nL=2\r\n"},
      {"[A]", "B", "K", "1", "[A]\r\n\r\n[B]\r\nK=1\r\n"},
      {"[A]\nK=1\n; of B\n[B]\nstray\n\n[A]\nM=9\n", "A", "L", "2", "[A]\nK=1\nL=2\n; of B\n[B]\nstray\n\n[A]\nM=9\n"},
      {"[A]\nK=1\n[B]\n[A]\nM=9\n", "A", "M", "2", "[A]\nK=1\n[B]\n[A]\nM=2\n"},
      {"[A]\r\n\r\n[B]\r\nK=1\r\n", "A", "K", "\" x \"", "[A]\r\nK=\" x \"\r\n\r\n[B]\r\nK=1\r\n"},
      {"K=0\n\n", "A", "K", "", "K=0\n\n[A]\nK=\n"},
      {"[A]\nK =   x\n", "A", "K", " y", "[A]\nK = y\n"},
      {"[A]\nK=\xE7\xFF\x81\n", "A", "L", "ç", "[A]\nK=\xE7\xFF\x81\nL=\xE7\n"},
  };
  for (const auto& c : cases) {
    ProfileText text(c.before);
    EXPECT_EQ(text.write(c.section, c.key, c.value), 0U);
    EXPECT_EQ(text.bytes(), c.after);
  }
  ProfileText text;
  EXPECT_EQ(text.write("A", "K", "日本x"), 2U);
  EXPECT_EQ(text.read("A", "K"), "??x");
}

TEST(ProfileText, RefusesWhatWouldBreakTheFile) {
  ProfileText text("[A]\nK=1\n");
  for (const char* value : {"a\nK=2", "a\rb"}) {
    expect_failure(erro::kInvalidCall, "", [&] { text.write("A", "K", value); });
  }
  expect_failure(erro::kInvalidCall, "", [&] { text.write("A", "K", std::string_view("a\0b", 3)); });
  for (const char* name : {"", " x", "a]b", "a=b", "a\nb", ";a", "日"}) {
    expect_failure(erro::kInvalidCall, "", [&] { text.write("A", name, "1"); });
    expect_failure(erro::kInvalidCall, "", [&] { text.write(name, "K", "1"); });
  }
  EXPECT_EQ(text.bytes(), "[A]\nK=1\n");
}

// Whatever the file holds, the value that was written is read, and no line but that one is another.
RC_GTEST_PROP(ProfileText, WritesInAnyFile, ()) {
  const auto line =
      rc::gen::element<std::string>("[A]", "[b]", "[a] x", "K=1", " k = 2", "L=3", "", ";K=4", "K", "=", "[");
  std::string before;
  for (const std::string& text : *rc::gen::container<std::vector<std::string>>(line)) {
    before += text + *rc::gen::element<std::string>("\n", "\r\n");
  }
  const std::string section = *rc::gen::element<std::string>("A", "B", "C");
  const ProfileText old(before);
  ProfileText text(before);
  text.write(section, "K", "new");
  RC_ASSERT(ProfileText(text.bytes()).read(section, "K") == "new");
  for (const char* other : {"A", "B", "C"}) {
    RC_ASSERT(text.read(other, "L") == old.read(other, "L"));
    if (other != section) RC_ASSERT(text.read(other, "K") == old.read(other, "K"));
  }
}

class ProfileFile : public ::testing::Test {
 protected:
  ProfileFile() { fs::create_directory(folder_); }
  ~ProfileFile() override { fs::remove_all(folder_); }

  std::size_t files() const { return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), {})); }

  // Runs `work` in a process of its own and gives its status as wait tells it.
  template <class Work>
  static int in_process(Work work) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
  }
  static void limit_files_to(rlim_t bytes) {
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  fs::path folder_ = fs::temp_directory_path() / ("posto_profile_" + std::to_string(getpid()));
  std::string file_ = folder_ / "posto.ini";
};

TEST_F(ProfileFile, IsChangedInPlaceWithItsRights) {
  EXPECT_EQ(load_profile(file_).read("A", "K"), "");
  change_profile(file_, [](ProfileText& text) { text.write("A", "K", "1"); });
  fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
  const std::string link = folder_ / "link.ini";
  fs::create_symlink("posto.ini", link);
  change_profile(link, [](ProfileText& text) { text.write("A", "L", "2"); });
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(read_file(file_), "[A]\r\nK=1\r\nL=2\r\n");
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(files(), 2U);
}

TEST_F(ProfileFile, AFailureLeavesTheOldFile) {
  replace_file(file_, "old");
  EXPECT_THROW(change_profile(file_,
                              [](ProfileText& text) {
                                text.write("A", "K", "1");
                                throw platform_erro(erro::kOverflow);
                              }),
               Erro);
  // The disk takes no more in the middle of the new file.
  EXPECT_EQ(in_process([&] {
              signal(SIGXFSZ, SIG_IGN);
              limit_files_to(1);
              const auto failure = failure_of([&] { replace_file(file_, "new file"); });
              if (!failure || failure->number() != erro::kPathFileAccess) _exit(1);
            }),
            0);
  EXPECT_EQ(read_file(file_), "old");
  fs::create_directory(folder_ / "a folder");
  EXPECT_EQ(failure_of([&] { replace_file(folder_ / "a folder", "x"); })->number(), erro::kPathFileAccess);
  EXPECT_EQ(failure_of([&] { replace_file("/proc/posto.ini", "x"); })->number(), erro::kPathFileAccess);
  EXPECT_EQ(failure_of([&] { replace_file(folder_ / "none" / "x", "x"); })->number(), 76);
  EXPECT_EQ(failure_of([&] { load_profile(folder_); })->number(), erro::kPathFileAccess);
  EXPECT_EQ(files(), 2U) << "a temporary file stayed";
}

TEST_F(ProfileFile, ACrashLeavesTheOldFileOrTheNewOne) {
  replace_file(file_, "old");
  // The process ends in the middle of the new file.
  EXPECT_TRUE(WIFSIGNALED(in_process([&] {
    limit_files_to(1);
    replace_file(file_, "new file");
  })));
  EXPECT_EQ(read_file(file_), "old");

  const std::string a(100'000, 'a'), b(50'000, 'b');
  replace_file(file_, a);
  for (int round = 0; round < 20; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      for (;;) {
        replace_file(file_, b);
        replace_file(file_, a);
      }
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1 + round));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string found = read_file(file_);
    ASSERT_TRUE(found == a || found == b) << found.size() << " bytes";
  }
}

TEST_F(ProfileFile, NoChangeOfTwoWritersIsLost) {
  const auto write_twenty = [&](const std::string& section) {
    for (int i = 0; i < 20; ++i) {
      change_profile(file_, [&](ProfileText& text) { text.write(section, "K" + std::to_string(i), "1"); });
    }
  };
  const pid_t child = fork();
  if (child == 0) {
    write_twenty("A");
    _exit(0);
  }
  write_twenty("B");
  waitpid(child, nullptr, 0);
  const ProfileText text = load_profile(file_);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(text.read("A", "K" + std::to_string(i)), "1");
    EXPECT_EQ(text.read("B", "K" + std::to_string(i)), "1");
  }
}

TEST_F(ProfileFile, FilesAreFoundWhateverTheirCase) {
  EXPECT_EQ(file_in(folder_, "Source"), folder_ / "Source");
  replace_file(folder_ / "SOURCE", "x");
  EXPECT_EQ(file_in(folder_, "Source"), folder_ / "SOURCE");
  replace_file(folder_ / "Source", "x");
  EXPECT_EQ(file_in(folder_, "Source"), folder_ / "Source");
  EXPECT_EQ(file_in(folder_ / "none", "Source"), folder_ / "none" / "Source");
}

}  // namespace
}  // namespace posto
