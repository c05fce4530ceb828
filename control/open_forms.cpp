#include "control/open_forms.h"

#include <algorithm>
#include <utility>

namespace plotvane::control {
namespace {

// Trivial to destroy, so that a thread may end after the library is gone.
thread_local OpenForms* listOfThisThread = nullptr;

}  // namespace

std::shared_ptr<OpenForms> OpenForms::OfThisThread() {
  if (listOfThisThread != nullptr) return listOfThisThread->shared_from_this();
  auto list = std::make_shared<OpenForms>();
  listOfThisThread = list.get();
  return list;
}

OpenForms::~OpenForms() {
  if (listOfThisThread == this) listOfThisThread = nullptr;
}

void OpenForms::Add(std::shared_ptr<Form> form) {
  mForms.push_back(std::move(form));
}

void OpenForms::Remove(const Form& form) noexcept {
  const auto found =
      std::find_if(mForms.begin(), mForms.end(), [&](const auto& open) { return open.get() == &form; });
  if (found == mForms.end()) return;
  // Taken out first: destroying a form may come back here.
  const std::shared_ptr<Form> removed = std::move(*found);
  mForms.erase(found);
}

void OpenForms::UnloadAll() {
  const auto keep = shared_from_this();
  while (!mForms.empty()) {
    const std::shared_ptr<Form> last = mForms.back();
    last->Unload();
    Remove(*last);
  }
}

}  // namespace plotvane::control
