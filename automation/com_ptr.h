// Holds one reference to a COM object and gives it back. Move-only: a second reference is taken
// where it is meant, by Share.
#pragma once

#include <utility>

#include <windows.h>
#include <unknwn.h>

namespace quarvel::automation {

template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  // Takes over a reference that the caller owns.
  explicit ComPtr(Interface* owned) : object_(owned) {}
  // Takes a reference of its own; null gives an empty holder.
  static ComPtr Share(Interface* object) {
    if (object != nullptr) object->AddRef();
    return ComPtr(object);
  }
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ComPtr(const ComPtr&) = delete;
  ComPtr& operator=(const ComPtr&) = delete;
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a call is to put a reference; the one held so far is given back.
  Interface** Receive() {
    ComPtr().swap(*this);
    return &object_;
  }
  void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }
  // The reference passes to the caller.
  Interface* Detach() { return std::exchange(object_, nullptr); }
  void swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace quarvel::automation
