#include "hosts/desktop/function_document.h"

#include "platform/open_files.h"
#include "platform/paths.h"
#include "platform/safe_save.h"

namespace plotvane::desktop {

using graph::clsYGraph;
using platform::FileMode;
using platform::RunTimeError;
using platform::ScopedFile;

namespace {

// Line styles are kept with a function and not used by the drawing.
constexpr std::int32_t kDrawStyle = 1;

// Red + 256 × green + 65536 × blue; ten colours that differ on a white surface, also for the colour-blind where
// neighbours are concerned.
constexpr std::array<std::int32_t, kFunctionCount> kColours{0xC04000, 0x0000D0, 0x008000, 0x0080FF, 0x800080,
                                                            0x808000, 0x404040, 0x8000FF, 0x004080, 0x40A0A0};

constexpr std::array<const char*, 4> kSamples{"sin(x)*4", "x^2/10-5", "1/x", "cos(2*x)+x/2"};

std::shared_ptr<clsYGraph> EmptyFunction(std::size_t index) {
  auto function = std::make_shared<clsYGraph>();
  function->Enabled = true;
  function->DrawStyle = kDrawStyle;
  function->DrawColor = kColours.at(index);
  return function;
}

std::array<std::shared_ptr<clsYGraph>, kFunctionCount> EmptyFunctions() {
  std::array<std::shared_ptr<clsYGraph>, kFunctionCount> functions;
  for (std::size_t index = 0; index < kFunctionCount; ++index) functions[index] = EmptyFunction(index);
  return functions;
}

}  // namespace

FunctionDocument::FunctionDocument() : mFunctions(EmptyFunctions()) {}

void FunctionDocument::Touch(std::size_t index) {
  mFunctions.at(index)->QuickRedraw = false;
  mChanged = true;
}

void FunctionDocument::Clear() {
  Adopt(EmptyFunctions());
  mFile.clear();
  mChanged = false;
}

void FunctionDocument::LoadSamples() {
  Functions samples = EmptyFunctions();
  for (std::size_t index = 0; index < kSamples.size(); ++index) samples[index]->Equation = kSamples[index];
  Adopt(samples);
  mFile.clear();
  mChanged = false;
}

void FunctionDocument::Load(const std::filesystem::path& file) {
  Functions loaded = EmptyFunctions();
  {
    const ScopedFile open(platform::TextFromPath(file), FileMode::Input);
    std::size_t count = 0;
    while (platform::SharedOpenFiles().HasRecord(open.Number())) {
      if (count == kFunctionCount) {
        throw RunTimeError(static_cast<std::int32_t>(platform::StandardError::SubscriptOutOfRange),
                           "The file holds more than ten functions.");
      }
      loaded[count++]->LoadDataFromOpenFile(open.Number());
    }
  }
  Adopt(loaded);
  mFile = file;
  mChanged = false;
}

void FunctionDocument::Save(const std::filesystem::path& file) {
  platform::SaveSafely(platform::TextFromPath(file), [this](const std::string& newPath) {
    ScopedFile open(newPath, FileMode::Output);
    for (const auto& function : mFunctions) function->SaveDataToOpenFile(open.Number());
    open.Close();
  });
  mFile = file;
  mChanged = false;
}

void FunctionDocument::Adopt(const Functions& functions) {
  for (std::size_t index = 0; index < kFunctionCount; ++index) {
    mFunctions[index]->CopyData(*functions[index]);
    mFunctions[index]->QuickRedraw = false;
  }
}

}  // namespace plotvane::desktop
