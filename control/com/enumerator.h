// Enumerator<Interface, Element>: a COM enumerator over a list that is fixed when it is made.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "control/com/fence.h"
#include "control/com/implements.h"

namespace plotvane::control::com {

// How an element is given away; specialised for elements that own something.
template <typename Element>
struct Giving {
  using Kept = Element;
  [[nodiscard]] static Element Give(const Kept& kept) { return kept; }
};
// Pointers to objects are kept and given as counted references.
template <typename Interface>
struct Giving<Interface*> {
  using Kept = ComPtr<Interface>;
  [[nodiscard]] static Interface* Give(const Kept& kept) { return kept.Share(); }
};
template <>
struct Giving<CONNECTDATA> {
  struct Kept {
    ComPtr<IUnknown> sink;
    DWORD cookie;
  };
  [[nodiscard]] static CONNECTDATA Give(const Kept& kept) { return {kept.sink.Share(), kept.cookie}; }
};

template <typename Interface, typename Element>
class Enumerator final : public Implements<Interface> {
 public:
  using Kept = typename Giving<Element>::Kept;

  explicit Enumerator(std::shared_ptr<const std::vector<Kept>> elements, std::size_t next = 0)
      : mElements(std::move(elements)), mNext(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Element* elements, ULONG* given) noexcept override {
    if (given != nullptr) *given = 0;
    if (elements == nullptr || (given == nullptr && wanted != 1)) return E_POINTER;
    const auto count = static_cast<ULONG>(std::min<std::size_t>(wanted, mElements->size() - mNext));
    for (ULONG index = 0; index < count; ++index)
      elements[index] = Giving<Element>::Give((*mElements)[mNext++]);
    if (given != nullptr) *given = count;
    return count == wanted ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG wanted) noexcept override {
    const std::size_t left = mElements->size() - mNext;
    mNext += std::min<std::size_t>(wanted, left);
    return wanted <= left ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Reset() noexcept override {
    mNext = 0;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) noexcept override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return Fence([&] { *clone = Make<Enumerator>(mElements, mNext).Detach(); });
  }

 private:
  std::shared_ptr<const std::vector<Kept>> mElements;
  std::size_t mNext;
};

// A new enumerator over `elements`.
template <typename Interface, typename Element>
[[nodiscard]] Interface* Enumerate(std::vector<typename Giving<Element>::Kept> elements) {
  using List = std::vector<typename Giving<Element>::Kept>;
  return Make<Enumerator<Interface, Element>>(std::make_shared<const List>(std::move(elements))).Detach();
}

}  // namespace plotvane::control::com
