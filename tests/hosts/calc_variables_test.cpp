// plotvane calc with a file of variables and with element symbols, run as a user runs it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/platform/temporary_directory.h"

namespace plotvane {
namespace {

using tests::TemporaryDirectory;

// Runs `plotvane calc` with its output in the file out.txt; true when it exits with 0.
bool Calc(const TemporaryDirectory& directory, const std::string& arguments) {
  const std::string command =
      std::string(PLOTVANE_PROGRAM) + " calc " + arguments + " >" + directory.File("out.txt") + " 2>&1";
  return std::system(command.c_str()) == 0;
}

TEST(CalcVariables, are_saved_to_a_new_file_and_loaded_from_it) {
  const TemporaryDirectory directory;
  const std::string file = "--variables " + directory.File("my.txt");
  EXPECT_TRUE(Calc(directory, file + " growth=0.035 years=12 Pi"));
  EXPECT_EQ(directory.Read("my.txt"), "\"years\",12,2,\"\"\r\n\"growth\",0.035,2,\"\"\r\n");
  EXPECT_TRUE(Calc(directory, file + " \"1000*(1+growth)^years\""));
  EXPECT_EQ(directory.Read("out.txt"), "1511.06865734636\n");
}

TEST(CalcVariables, are_saved_after_a_failed_line_too) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(Calc(directory, "--variables " + directory.File("my.txt") + " x=7 1/0"));
  EXPECT_EQ(directory.Read("my.txt"), "\"x\",7,2,\"\"\r\n");
}

TEST(CalcVariables, of_every_type_stay_in_their_file) {
  const TemporaryDirectory directory;
  const std::string records =
      "\"speed\",0.035,4,\"a constant\"\r\n\"Pi\",3,9,\"of old\"\r\n\"note\",\"text\",2,\"said\"\r\n\"he\",5,24,\"gas\"\r\n"
      "\"a\",,16,\"\"\r\n";
  directory.Write("my.txt", records);
  const std::string file = "--variables " + directory.File("my.txt");
  EXPECT_FALSE(Calc(directory, file + " speed=1"));  // a constant is not stored into
  EXPECT_EQ(directory.Read("my.txt"), records);
  EXPECT_TRUE(Calc(directory, file + " --chem c+1"));
  EXPECT_EQ(directory.Read("my.txt"), records);
  EXPECT_TRUE(Calc(directory, file + " \"z=1\""));
  EXPECT_EQ(directory.Read("my.txt"), "\"z\",1,2,\"\"\r\n" + records);
}

TEST(CalcVariables, of_a_file_survive_a_full_disk) {
  const TemporaryDirectory directory;
  directory.Write("my.txt", "\"x\",7,2,\"\"\r\n");
  // No file of this process may grow.
  const std::string command = "(trap '' XFSZ; ulimit -f 0; exec " + std::string(PLOTVANE_PROGRAM) + " calc --variables " +
                              directory.File("my.txt") + " x=8 2>&1) | cat >" + directory.File("out.txt");
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(directory.Read("out.txt"), "8\nplotvane: Disk full\n");
  EXPECT_EQ(directory.Read("my.txt"), "\"x\",7,2,\"\"\r\n");
  EXPECT_FALSE(std::filesystem::exists(directory.File("my.txt") + ".new"));
}

TEST(CalcVariables, stay_as_they_are_when_their_file_is_damaged) {
  const TemporaryDirectory directory;
  directory.Write("my.txt", "\"x\",7\n");
  EXPECT_FALSE(Calc(directory, "--variables " + directory.File("my.txt") + " x=8"));
  EXPECT_EQ(directory.Read("out.txt"), "plotvane: Input past end of file\n");
  EXPECT_EQ(directory.Read("my.txt"), "\"x\",7\n");
}

TEST(CalcVariables, need_a_directory_that_exists) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(Calc(directory, "--variables " + directory.File("none/my.txt") + " 1"));
  EXPECT_EQ(directory.Read("out.txt"), "plotvane: Path not found\n");
  EXPECT_FALSE(Calc(directory, "--variables " + directory.Path() + " 1"));
  EXPECT_EQ(directory.Read("out.txt"), "plotvane: Path/File access error\n");
}

TEST(CalcElements, give_molar_masses) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(Calc(directory, "--chem \"2*h+o\""));
  EXPECT_EQ(directory.Read("out.txt"), "18.015\n");
  EXPECT_FALSE(Calc(directory, "--chem \"h=1\""));
}

}  // namespace
}  // namespace plotvane
