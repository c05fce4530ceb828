// The periodic table: the data files that come with the program, and damaged or unusual ones.
#include "identifiers/clsPeriodicTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <set>
#include <string>

#include "platform/ascii.h"
#include "tests/identifiers/element_data_directory.h"
#include "tests/platform/run_time_error_number.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::identifiers {
namespace {

using tests::ElementDataDirectory;
using tests::RunTimeErrorNumber;
using tests::TemporaryDirectory;

void WriteFiles(const TemporaryDirectory& directory, const std::string& names, const std::string& symbols,
                const std::string& weights) {
  directory.Write("PTE Names.dat", names);
  directory.Write("PTE Symbols.dat", symbols);
  directory.Write("PTE Weights.dat", weights);
}

TEST(PeriodicTable, reads_names_symbols_and_weights_line_by_line) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\nHelium\nLithium\n", "H\nHe\nLi\n", "1.008\n4.0026\n6.94\n");
  const clsPeriodicTable table(directory.Path());
  EXPECT_EQ(table.NumberOfElements(), 3);
  EXPECT_EQ(table.MM_Symbol("He"), 4.0026);
  EXPECT_EQ(table.FindSymbolIndex("Li"), 3);
  EXPECT_EQ(table.FindSymbolIndex("li"), -1);
  EXPECT_TRUE(table.IsElementSymbol("H"));
  EXPECT_FALSE(table.IsElementSymbol("h"));
  EXPECT_EQ(table.GetSymbolFromIndex(2), "He");
  EXPECT_EQ(table.GetNameFromIndex(3), "Lithium");
  EXPECT_EQ(table.GetAtomicWeight(1), 1.008);
}

TEST(PeriodicTable, trims_names_and_symbols_and_reads_weights_as_far_as_they_go) {
  const TemporaryDirectory directory;
  WriteFiles(directory, " Carbon \t\r\nSilver\r\n\r\nLast", "  C\t\r\nAg \r\n\r\nL",
             " 12.011 grams\r\nabc\r\n\r\n1,5");
  const clsPeriodicTable table(directory.Path());
  EXPECT_EQ(table.NumberOfElements(), 4);
  EXPECT_EQ(table.GetNameFromIndex(1), "Carbon");
  EXPECT_EQ(table.MM_Symbol("C"), 12.011);
  EXPECT_EQ(table.MM_Symbol("Ag"), 0);
  EXPECT_EQ(table.GetNameFromIndex(3), "");
  EXPECT_EQ(table.GetAtomicWeight(3), 0);
  EXPECT_EQ(table.MM_Symbol("L"), 1);
}

TEST(PeriodicTable, leaves_missing_symbols_empty_and_missing_weights_0) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\nHelium\n", "H\n", "");
  const clsPeriodicTable table(directory.Path());
  EXPECT_EQ(table.GetSymbolFromIndex(2), "");
  EXPECT_EQ(table.MM_Symbol("H"), 0);
}

TEST(PeriodicTable, finds_the_first_of_equal_symbols) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "One\nTwo\n", "X\nX\n", "1\n2\n");
  EXPECT_EQ(clsPeriodicTable(directory.Path()).MM_Symbol("X"), 1);
}

TEST(PeriodicTable, an_empty_names_file_gives_no_elements) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "", "", "");
  const clsPeriodicTable table(directory.Path());
  EXPECT_EQ(table.NumberOfElements(), 0);
  EXPECT_EQ(table.FindSymbolIndex("H"), -1);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.MM_Symbol("H"); }), 9);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.GetAtomicWeight(1); }), 9);
}

TEST(PeriodicTable, refuses_unknown_symbols_and_indices_outside_the_table) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\n", "H\n", "1.008\n");
  const clsPeriodicTable table(directory.Path());
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.MM_Symbol("Xx"); }), 9);
  for (const int index : {0, -1, 2, 32767, -32768}) {
    const auto i = static_cast<std::int16_t>(index);
    EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.GetSymbolFromIndex(i); }), 9);
    EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.GetAtomicWeight(i); }), 9);
    EXPECT_EQ(RunTimeErrorNumber([&] { (void)table.GetNameFromIndex(i); }), 9);
  }
}

TEST(PeriodicTable, refuses_files_longer_than_the_names_file) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\n", "H\nHe\n", "1\n");
  EXPECT_EQ(RunTimeErrorNumber([&] { clsPeriodicTable table(directory.Path()); }), 9);
  WriteFiles(directory, "Hydrogen\n", "H\n", "1\n\n");
  EXPECT_EQ(RunTimeErrorNumber([&] { clsPeriodicTable table(directory.Path()); }), 9);
}

TEST(PeriodicTable, refuses_missing_files_and_impossible_content) {
  for (const char* missing : {"PTE Names.dat", "PTE Symbols.dat", "PTE Weights.dat"}) {
    const TemporaryDirectory directory;
    WriteFiles(directory, "Hydrogen\n", "H\n", "1\n");
    std::filesystem::remove(platform::PathFromText(directory.File(missing)));
    EXPECT_EQ(RunTimeErrorNumber([&] { clsPeriodicTable table(directory.Path()); }), 53) << missing;
  }
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\n", "H\n", "1e999\n");
  EXPECT_EQ(RunTimeErrorNumber([&] { clsPeriodicTable table(directory.Path()); }), 6);
  WriteFiles(directory, std::string(32768, '\n'), "", "");
  EXPECT_EQ(RunTimeErrorNumber([&] { clsPeriodicTable table(directory.Path()); }), 6);
  WriteFiles(directory, std::string(32767, '\n'), "", "");
  EXPECT_EQ(clsPeriodicTable(directory.Path()).NumberOfElements(), 32767);
}

TEST(PeriodicTable, reads_its_files_again_and_keeps_its_elements_when_that_fails) {
  const TemporaryDirectory directory;
  WriteFiles(directory, "Hydrogen\n", "H\n", "1\n");
  clsPeriodicTable table(directory.Path());
  WriteFiles(directory, "Hydrogen\nHelium\n", "H\nHe\n", "1\n4\n");
  table.LoadElementData();
  EXPECT_EQ(table.NumberOfElements(), 2);
  WriteFiles(directory, "", "H\n", "");
  EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadElementData(); }), 9);
  EXPECT_EQ(table.MM_Symbol("He"), 4);
}

TEST(ElementData, lists_118_elements_with_distinct_symbols_and_plausible_weights) {
  const clsPeriodicTable table(ElementDataDirectory());
  ASSERT_EQ(table.NumberOfElements(), 118);
  std::set<std::string> symbols;
  std::set<std::string> names;
  for (std::int16_t z = 1; z <= 118; ++z) {
    EXPECT_TRUE(symbols.insert(platform::LowerCaseText(table.GetSymbolFromIndex(z))).second);
    EXPECT_TRUE(names.insert(table.GetNameFromIndex(z)).second);
    EXPECT_LE(table.GetSymbolFromIndex(z).size(), 2U);
    // Nuclei hold between one and 2.7 times as many particles as protons.
    EXPECT_GE(table.GetAtomicWeight(z), z) << z;
    EXPECT_LE(table.GetAtomicWeight(z), z == 1 ? 1.1 : 2.7 * z) << z;
  }
}

TEST(ElementData, gives_standard_weights_and_mass_numbers) {
  struct Case {
    int number;
    const char* symbol;
    const char* name;
    double weight;
  };
  const Case cases[] = {
      {1, "H", "Hydrogen", 1.008},     {6, "C", "Carbon", 12.011},    {8, "O", "Oxygen", 15.999},
      {11, "Na", "Sodium", 22.990},    {17, "Cl", "Chlorine", 35.45}, {26, "Fe", "Iron", 55.845},
      {27, "Co", "Cobalt", 58.933},    {43, "Tc", "Technetium", 97},  {50, "Sn", "Tin", 118.71},
      {57, "La", "Lanthanum", 138.91}, {79, "Au", "Gold", 196.97},    {82, "Pb", "Lead", 207.2},
      {92, "U", "Uranium", 238.03},    {94, "Pu", "Plutonium", 244},  {118, "Og", "Oganesson", 294},
  };
  const clsPeriodicTable table(ElementDataDirectory());
  for (const auto& c : cases) {
    const auto z = static_cast<std::int16_t>(c.number);
    EXPECT_EQ(table.GetSymbolFromIndex(z), c.symbol);
    EXPECT_EQ(table.GetNameFromIndex(z), c.name);
    EXPECT_EQ(table.GetAtomicWeight(z), c.weight);
  }
}

}  // namespace
}  // namespace plotvane::identifiers
