// clsPeriodicTable: names, symbols and atomic weights of the chemical elements, read from three data files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::identifiers {

// Elements are numbered from 1, by atomic number as the files list them: line i of each file belongs to
// element i. Symbols are compared exactly, letter case included (Co is cobalt), unlike identifiers.
class clsPeriodicTable {
 public:
  static constexpr std::string_view kNamesFile = "PTE Names.dat";
  static constexpr std::string_view kSymbolsFile = "PTE Symbols.dat";
  static constexpr std::string_view kWeightsFile = "PTE Weights.dat";

  // Reads the files beside the program (platform/program_directory.h), or in `directory` (UTF-8). Errors:
  // LoadElementData.
  clsPeriodicTable();
  explicit clsPeriodicTable(std::string directory);

  // Reads the three files again. The names file decides how many elements there are; where the others have
  // fewer lines, symbols are empty and weights 0. RunTimeError 53 for a missing file (and the other numbers
  // of platform/open_files.h), 9 when the symbols or weights file is longer than the names file, 6 for a
  // weight too large or more than 32,767 elements; the table then stays as it was.
  void LoadElementData();

  [[nodiscard]] std::int16_t NumberOfElements() const noexcept;

  // The number of the first element with this symbol, or -1.
  [[nodiscard]] std::int16_t FindSymbolIndex(std::string_view symbol) const noexcept;
  [[nodiscard]] bool IsElementSymbol(std::string_view symbol) const noexcept;

  // Molar mass of the element with this symbol, in grams per mole. RunTimeError 9 for an unknown symbol, not
  // 0.
  [[nodiscard]] double MM_Symbol(std::string_view symbol) const;

  // RunTimeError 9 for an index outside 1..NumberOfElements.
  [[nodiscard]] const std::string& GetSymbolFromIndex(std::int16_t index) const;
  [[nodiscard]] double GetAtomicWeight(std::int16_t index) const;
  [[nodiscard]] const std::string& GetNameFromIndex(std::int16_t index) const;

 private:
  struct Element {
    std::string name;
    std::string symbol;
    double atomicWeight = 0;  // grams per mole
  };

  [[nodiscard]] const Element& At(std::int16_t index) const;

  std::string mDirectory;
  std::vector<Element> mElements;  // element i is at [i - 1]
};

}  // namespace plotvane::identifiers
