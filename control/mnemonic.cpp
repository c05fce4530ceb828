#include "control/mnemonic.h"

namespace plotvane::control {

std::string CaptionWithoutMnemonic(std::string_view caption) {
  std::string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    shown += caption[i];
  }
  return shown;
}

}  // namespace plotvane::control
