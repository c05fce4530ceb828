// The type library in the .ocx is the one that hosts were compiled against, to the last slot.
#include "tests/wine/type_library_dump.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

std::string Golden() {
  std::ifstream file(PLOTVANE_SOURCE "/tests/wine/type_library.txt");
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(TypeLibrary, nothing_that_hosts_bind_to_has_moved) {
  const Apartment apartment;
  ComPtr<ITypeLib> library;
  ASSERT_EQ(::LoadTypeLibEx(Library::Path().c_str(), REGKIND_NONE, library.Receive()), S_OK);
  const std::string dump = DumpTypeLibrary(*library.Get());
  EXPECT_EQ(dump, Golden());
  // For a look at what moved.
  if (dump != Golden()) std::ofstream("type_library.new.txt") << dump;
}

}  // namespace
}  // namespace plotvane::tests
