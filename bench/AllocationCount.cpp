#include "bench/AllocationCount.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "tests/support/ImportTable.h"

namespace {

using AllocationCount::calls;

// One for each function that gives memory. The real one is called by its address: this program's own imports may be
// replaced, too.
template <class Function, size_t kNumber>
struct Counted;

template <class Result, class... Arguments, size_t kNumber>
struct Counted<Result (*)(Arguments...), kNumber> {
  static inline Result (*real)(Arguments...) = nullptr;
  static Result Call(Arguments... arguments) { return ++calls, real(arguments...); }
};

template <class Result, class... Arguments, size_t kNumber>
struct Counted<Result(WINAPI*)(Arguments...), kNumber> {
  static inline Result(WINAPI* real)(Arguments...) = nullptr;
  static Result WINAPI Call(Arguments... arguments) { return ++calls, real(arguments...); }
};

template <class Function, size_t kNumber>
ULONG_PTR CounterOf(ULONG_PTR now) noexcept {
  using Counter = Counted<Function, kNumber>;
  if (now != AddressOf(&Counter::Call)) Counter::real = reinterpret_cast<Function>(now);
  return AddressOf(&Counter::Call);
}

ULONG_PTR CounterFor(const char* name, ULONG_PTR now) noexcept {
  const auto is = [name](const char* counted) { return std::strcmp(name, counted) == 0; };
  if (is("malloc")) return CounterOf<decltype(&std::malloc), 0>(now);
  if (is("calloc")) return CounterOf<decltype(&std::calloc), 1>(now);
  if (is("realloc")) return CounterOf<decltype(&std::realloc), 2>(now);
  if (is("HeapAlloc")) return CounterOf<decltype(&HeapAlloc), 3>(now);
  if (is("GlobalAlloc")) return CounterOf<decltype(&GlobalAlloc), 4>(now);
  if (is("LocalAlloc")) return CounterOf<decltype(&LocalAlloc), 5>(now);
  if (is("VirtualAlloc")) return CounterOf<decltype(&VirtualAlloc), 6>(now);
  return 0;
}

}  // namespace

bool AllocationCount::Install(HMODULE module) {
  return ReplaceImports(module, &CounterFor) > 0;
}
