// A station in a folder of its own, as the program's tests make and question it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "tests/program/run_program.h"

namespace posto {

// An empty database, "posto.db", in a folder that goes when the test ends.
class ProgramStation : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "posto-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    ASSERT_EQ(run_program("criar " + database()).status, 0);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void execute(std::initializer_list<const char*> statements) const {
    for (std::string statement : statements) {
      for (std::size_t at = 0; (at = statement.find('"', at)) != std::string::npos; at += 2) {
        statement.insert(at, 1, '\\');
      }
      expect_said(run_program("sql " + database() + " \"" + statement + "\""), 0, "");
    }
  }
  std::string file(const std::string& name) const { return folder_ + "/" + name; }
  std::string database() const { return file("posto.db"); }

  static void expect_said(const ProgramRun& run, int status, const std::string& words) {
    EXPECT_EQ(run.status, status) << run.said;
    EXPECT_NE(run.said.find(words), std::string::npos) << words << "\n" << run.said;
  }

 private:
  std::string folder_;
};

}  // namespace posto
