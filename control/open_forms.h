// OpenForms: the dialogs of the component that are open, oldest first.
#pragma once

#include <memory>
#include <vector>

namespace plotvane::control {

// A modeless dialog. The list owns it from its opening to its closing; nothing else keeps it alive.
class Form {
 public:
  virtual ~Form() = default;
  // Closes the window, gives back the reference to the control and leaves the list.
  virtual void Unload() = 0;
};

// One list for all controls of a thread: the destruction of one control closes every dialog in it, those of
// other controls too. It lives as long as a control or an open dialog of the thread does.
class OpenForms : public std::enable_shared_from_this<OpenForms> {
 public:
  [[nodiscard]] static std::shared_ptr<OpenForms> OfThisThread();

  OpenForms() = default;
  ~OpenForms();
  OpenForms(const OpenForms&) = delete;
  OpenForms& operator=(const OpenForms&) = delete;

  void Add(std::shared_ptr<Form> form);
  void Remove(const Form& form) noexcept;
  // Unloads the last form of the list until none is left.
  void UnloadAll();

  [[nodiscard]] const std::vector<std::shared_ptr<Form>>& Forms() const noexcept { return mForms; }

 private:
  std::vector<std::shared_ptr<Form>> mForms;
};

}  // namespace plotvane::control
