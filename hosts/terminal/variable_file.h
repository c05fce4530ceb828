// The file of --variables.
#pragma once

#include <set>
#include <string>

#include "identifiers/clsVarTable.h"

namespace plotvane::terminal {

class VariableFile {
 public:
  // Loads the records of the file `path` into `table`, which must live longer. A file that is not there yet holds
  // none; RunTimeError when it cannot be read or is damaged.
  VariableFile(std::string path, identifiers::clsVarTable& table);

  // Writes every record of the table, whatever its type, but for those that the table held before and the file did
  // not: the predefined constants and the elements. RunTimeError when that fails; the old file then stays as it is.
  void Save() const;

 private:
  std::string mPath;
  identifiers::clsVarTable& mTable;
  std::set<std::string> mBuiltIn;  // in lower case
};

}  // namespace plotvane::terminal
