// Focus: the language reference shows every function of the catalogue, in its order, with its forms and its
// help.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "functions/catalogue.h"

namespace plotvane::functions {
namespace {

std::string ReferenceText() {
  std::ifstream file(PLOTVANE_FUNCTION_REFERENCE, std::ios::binary);
  EXPECT_TRUE(file.is_open());
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string_view AngleColumn(AngleRule rule) {
  switch (rule) {
    case AngleRule::In: return "in";
    case AngleRule::Out: return "out";
    case AngleRule::None: break;
  }
  return "";
}

TEST(LanguageReference, its_table_is_the_catalogue) {
  std::string table;
  for (const Function& function : kCatalogue) {
    table += "| `" + CallForm(function) + "` | " + std::string(AngleColumn(function.angle)) + " | " +
             std::string(function.help) + " |\n";
  }
  const std::string reference = ReferenceText();
  EXPECT_NE(reference.find(table), std::string::npos) << "the table in docs/functions.md should be:\n"
                                                      << table;
}

}  // namespace
}  // namespace plotvane::functions
