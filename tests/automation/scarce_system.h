// Lets the memory of the system's texts and arrays run out as that of operator new does.
#pragma once

#include <cstdint>

#include <windows.h>
#include <objidl.h>

#include "tests/memory/failing_allocations.h"

namespace quarvel::automation {

// Has the system's allocator of texts and arrays fail as operator new does.
class ScarceSystem final : public IMallocSpy {
 public:
  // Wine looks for any memory in the list of what was taken since, which must not be empty: some is
  // taken at once and kept.
  ScarceSystem() : thread_(GetCurrentThreadId()) {
    registered_ = CoRegisterMallocSpy(this);
    kept_ = CoTaskMemAlloc(1);
  }
  ScarceSystem(const ScarceSystem&) = delete;
  ScarceSystem& operator=(const ScarceSystem&) = delete;
  // It stays until the process ends: the system lets go of it only when all memory is freed that was
  // taken meanwhile.
  ~ScarceSystem() = default;
  bool works() const { return SUCCEEDED(registered_) && kept_ != nullptr; }
  // How many of the system's allocations were asked for in tests of this thread.
  std::int64_t asked() const { return asked_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IMallocSpy);
    *object = known ? static_cast<IMallocSpy*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP_(SIZE_T) PreAlloc(SIZE_T size) override { return Granted(size); }
  STDMETHODIMP_(void*) PostAlloc(void* memory) override { return memory; }
  STDMETHODIMP_(void*) PreFree(void* memory, BOOL) override { return memory; }
  STDMETHODIMP_(void) PostFree(BOOL) override {}
  STDMETHODIMP_(SIZE_T) PreRealloc(void* old, SIZE_T size, void** memory, BOOL) override {
    *memory = old;
    return Granted(size);
  }
  STDMETHODIMP_(void*) PostRealloc(void* memory, BOOL) override { return memory; }
  STDMETHODIMP_(void*) PreGetSize(void* memory, BOOL) override { return memory; }
  STDMETHODIMP_(SIZE_T) PostGetSize(SIZE_T size, BOOL) override { return size; }
  STDMETHODIMP_(void*) PreDidAlloc(void* memory, BOOL) override { return memory; }
  STDMETHODIMP_(int) PostDidAlloc(void*, BOOL, int actual) override { return actual; }
  STDMETHODIMP_(void) PreHeapMinimize() override {}
  STDMETHODIMP_(void) PostHeapMinimize() override {}

 private:
  SIZE_T Granted(SIZE_T size) {
    if (GetCurrentThreadId() != thread_) return size;
    ++asked_;
    return quarvel::testing::AllocationFails() ? 0 : size;
  }

  DWORD thread_;
  HRESULT registered_ = E_FAIL;
  void* kept_ = nullptr;
  std::int64_t asked_ = 0;
};

}  // namespace quarvel::automation
