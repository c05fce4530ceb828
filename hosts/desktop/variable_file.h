// VariableFile: files of variables, of which the control's table saves one type at a time.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "identifiers/clsNodeTable.h"

namespace plotvane::desktop {

class VariableFile {
 public:
  // Reads a file and remembers what it holds besides ordinary variables. RunTimeError when it cannot be read or is
  // damaged; nothing is remembered then.
  void Read(const std::filesystem::path& file);

  // Puts a new file in the place of `file`: the ordinary variables, which `saveVariables` writes to a file of the name
  // that it gets, and what was remembered, where no variable has taken the name. When anything fails (RunTimeError) the
  // old file is still there.
  void Save(const std::filesystem::path& file, const std::function<void(const std::string& path)>& saveVariables);

 private:
  identifiers::clsNodeTable mOthers;
};

}  // namespace plotvane::desktop
