#include "hosts/desktop/variable_file.h"

#include "identifiers/clsVarTable.h"
#include "platform/paths.h"
#include "platform/safe_save.h"

namespace plotvane::desktop {

using identifiers::clsExNode;
using identifiers::clsNodeTable;

void VariableFile::Read(const std::filesystem::path& file) {
  clsNodeTable records;
  records.LoadFromFile(platform::TextFromPath(file));
  for (const std::string& id : records.Ids()) {
    const clsExNode& record = *records.Find(id);
    if (record.Type() != identifiers::kVariableType) mOthers.AddNode(record);
  }
}

void VariableFile::Save(const std::filesystem::path& file,
                        const std::function<void(const std::string& path)>& saveVariables) {
  platform::SaveSafely(platform::TextFromPath(file), [&](const std::string& newPath) {
    saveVariables(newPath);
    clsNodeTable all;
    for (const std::string& id : mOthers.Ids()) all.AddNode(*mOthers.Find(id));
    all.LoadFromFile(newPath);
    all.SaveToFile(newPath);
  });
}

}  // namespace plotvane::desktop
