// Marlux 3. Makes calls of a loaded module into the system and into its C library fail, one place of the module after
// the other.
//
//   ASSERT_TRUE(CallFaults::Install("marlux3.dll"));
//   do {
//     CallFaults::Begin();
//     ...                   // the next place that has not failed before fails once, the way the real function does
//   } while (!CallFaults::End().empty());
//
// A place is a function and who called it: the module's own return addresses on the stack, so that a wrapper that many
// use is as many places as it has users. One thread only.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CallFaults {

constexpr uint32_t kMostCallers = 8;
inline uint32_t callers = 3;  // how many of them tell places apart
inline uint32_t most = 1;     // failures from Begin to End
inline uint32_t gap = 0;      // calls that go well between two of them

struct Place {
  uint32_t function = 0;
  std::array<uint32_t, kMostCallers> from = {};  // offsets into the module, the innermost first

  auto operator<=>(const Place&) const = default;
};

// With one given, it fails in any case, and of the others only those that come after it: what a failure leads to.
inline std::optional<Place> first;
inline bool lasts = false;          // once a call has failed, those of its group all do until End
inline bool isMadeAtFirst = false;  // a window that fails is made and destroyed again, as if it refused itself

inline std::vector<Place> failed;  // since Begin
inline int64_t blocks = 0;         // what the module has of the C library's heap and of address space now

// Once for each load. False when the module is not there. It lasts as long as the module stays loaded.
[[nodiscard]] bool Install(const char* module);
inline std::string fileName;  // what the system's file dialogs answer at once, while Install lasts

void Begin();
std::vector<Place> End();                              // those that failed since Begin
void Forget(const std::vector<Place>& places);         // they may fail again
[[nodiscard]] std::string KindOf(const Place& place);  // group and function
[[nodiscard]] std::string TextOf(const Place& place);

}  // namespace CallFaults
