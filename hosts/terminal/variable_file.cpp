#include "hosts/terminal/variable_file.h"

#include <utility>

#include "platform/ascii.h"
#include "platform/runtime_error.h"
#include "platform/safe_save.h"

namespace plotvane::terminal {

using identifiers::clsNodeTable;

VariableFile::VariableFile(std::string path, identifiers::clsVarTable& table)
    : mPath(std::move(path)), mTable(table) {
  for (const std::string& id : table.Records().Ids()) mBuiltIn.insert(platform::LowerCaseText(id));
  clsNodeTable inFile;
  try {
    inFile.LoadFromFile(mPath);
    mTable.LoadTypeFromFile(mPath);
  } catch (const platform::RunTimeError& error) {
    if (error.Number() != static_cast<std::int32_t>(platform::StandardError::FileNotFound)) throw;
  }
  for (const std::string& id : inFile.Ids()) mBuiltIn.erase(platform::LowerCaseText(id));
}

void VariableFile::Save() const {
  clsNodeTable own;
  for (const std::string& id : mTable.Records().Ids()) {
    if (!mBuiltIn.contains(platform::LowerCaseText(id))) own.AddNode(*mTable.Records().Find(id));
  }
  platform::SaveSafely(mPath, [&own](const std::string& newPath) { own.SaveToFile(newPath); });
}

}  // namespace plotvane::terminal
