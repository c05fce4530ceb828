// FunctionDocument: the ten functions Y1 to Y10 that the desktop host keeps, and the file they come from.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>

#include "graph/clsYGraph.h"

namespace plotvane::desktop {

inline constexpr std::size_t kFunctionCount = 10;

class FunctionDocument {
 public:
  // Ten enabled functions without an equation, each in a colour of its own.
  FunctionDocument();

  // Function `index` (0 is Y1). The objects live as long as the document and are shared with the control.
  [[nodiscard]] const std::shared_ptr<graph::clsYGraph>& Function(std::size_t index) const {
    return mFunctions.at(index);
  }

  // Tells that a function was edited: the document now differs from its file, and the function's drawn path no
  // longer holds.
  void Touch(std::size_t index);

  // Starts afresh, without a file.
  void Clear();
  // Sample functions in three colours, as if just opened; without a file.
  void LoadSamples();
  // Reads up to ten records; further functions become empty. Throws platform::RunTimeError and leaves the document
  // as it was when the file cannot be read, is damaged or holds more than ten records.
  void Load(const std::filesystem::path& file);
  // Writes ten records beside `file` and puts the result in its place: when anything fails (RunTimeError) the old
  // file is still there.
  void Save(const std::filesystem::path& file);

  // Empty when the document has no file yet.
  [[nodiscard]] const std::filesystem::path& File() const { return mFile; }
  [[nodiscard]] bool Changed() const { return mChanged; }

 private:
  using Functions = std::array<std::shared_ptr<graph::clsYGraph>, kFunctionCount>;

  // Takes over the four stored fields of each, keeping the objects that the control knows.
  void Adopt(const Functions& functions);

  Functions mFunctions;
  std::filesystem::path mFile;
  bool mChanged = false;
};

}  // namespace plotvane::desktop
