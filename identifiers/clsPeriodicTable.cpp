#include "identifiers/clsPeriodicTable.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "platform/ascii.h"
#include "platform/number_text.h"
#include "platform/open_files.h"
#include "platform/paths.h"
#include "platform/program_directory.h"
#include "platform/runtime_error.h"

namespace plotvane::identifiers {

namespace {

// Calls `use` with the number, from 0 on, and the text of each line.
template <typename Use>
void ForEachLine(const std::string& path, Use use) {
  const platform::ScopedFile file(path, platform::FileMode::Input);
  platform::OpenFiles& files = platform::SharedOpenFiles();
  for (std::size_t i = 0; !files.AtEnd(file.Number()); ++i) use(i, files.ReadLine(file.Number()));
}

}  // namespace

clsPeriodicTable::clsPeriodicTable() : clsPeriodicTable(platform::ProgramDirectory()) {}

clsPeriodicTable::clsPeriodicTable(std::string directory) : mDirectory(std::move(directory)) {
  LoadElementData();
}

void clsPeriodicTable::LoadElementData() {
  constexpr std::size_t kMostElements = std::numeric_limits<std::int16_t>::max();
  std::vector<Element> elements;
  const auto element = [&](std::size_t i) -> Element& {
    if (i >= elements.size()) throw platform::RunTimeError(platform::StandardError::SubscriptOutOfRange);
    return elements[i];
  };
  ForEachLine(platform::FileInDirectory(mDirectory, kNamesFile), [&](std::size_t i, const std::string& line) {
    if (i >= kMostElements) throw platform::RunTimeError(platform::StandardError::Overflow);
    elements.emplace_back().name = platform::TrimBlanks(line);
  });
  ForEachLine(
      platform::FileInDirectory(mDirectory, kSymbolsFile),
      [&](std::size_t i, const std::string& line) { element(i).symbol = platform::TrimBlanks(line); });
  ForEachLine(platform::FileInDirectory(mDirectory, kWeightsFile),
              [&](std::size_t i, const std::string& line) {
                element(i).atomicWeight = platform::LeadingNumber(line).OrThrow();
              });
  mElements = std::move(elements);
}

std::int16_t clsPeriodicTable::NumberOfElements() const noexcept {
  return static_cast<std::int16_t>(mElements.size());
}

std::int16_t clsPeriodicTable::FindSymbolIndex(std::string_view symbol) const noexcept {
  const auto found = std::ranges::find(mElements, symbol, &Element::symbol);
  return found == mElements.end() ? std::int16_t{-1}
                                  : static_cast<std::int16_t>(found - mElements.begin() + 1);
}

bool clsPeriodicTable::IsElementSymbol(std::string_view symbol) const noexcept {
  return FindSymbolIndex(symbol) != -1;
}

// The index -1 of an unknown symbol is refused like any other outside the table.
double clsPeriodicTable::MM_Symbol(std::string_view symbol) const {
  return GetAtomicWeight(FindSymbolIndex(symbol));
}

const std::string& clsPeriodicTable::GetSymbolFromIndex(std::int16_t index) const {
  return At(index).symbol;
}

double clsPeriodicTable::GetAtomicWeight(std::int16_t index) const {
  return At(index).atomicWeight;
}

const std::string& clsPeriodicTable::GetNameFromIndex(std::int16_t index) const {
  return At(index).name;
}

const clsPeriodicTable::Element& clsPeriodicTable::At(std::int16_t index) const {
  if (index < 1 || index > NumberOfElements()) {
    throw platform::RunTimeError(platform::StandardError::SubscriptOutOfRange);
  }
  return mElements[static_cast<std::size_t>(index - 1)];
}

}  // namespace plotvane::identifiers
