// Owning pointers for C libraries' objects: OwnedBy<heif_context, heif_context_free> holds a
// heif_context and hands it to heif_context_free when it goes.
#pragma once

#include <memory>

namespace velmora::imaging {

template <auto Release>
struct ReleaseWith {
  template <class T>
  void operator()(T* object) const noexcept {
    Release(object);
  }
};

template <class T, auto Release>
using OwnedBy = std::unique_ptr<T, ReleaseWith<Release>>;

}  // namespace velmora::imaging
