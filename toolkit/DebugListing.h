// Marlux 3. The components that are alive, one line each in the debugger's output: at the end of the module those that
// were never deleted. Exists only while tracing is on; without it a component costs one look at a null pointer.
//
//      3: [       7]  <    Button:0040F2A0>          a drawn control: number, stamp, kind, object, text
//      4: [       7]  <    Window:0040F300- 5011A>  Marlux 3    with the window's handle
//
// (Tabs stand before "<" and behind ">".)
#pragma once

#include "foundation/TmyList.h"
#include "foundation/TmyString.h"

class TmyControl;

class DebugListing {
 public:
  void Add(TmyControl& control) { controls_.Add(&control); }
  void Remove(const TmyControl& control) noexcept;
  void Write() const;  // by Trace::Line

  [[nodiscard]] uint32_t Count() const noexcept { return controls_.Count(); }
  [[nodiscard]] TmyString LineOf(uint32_t index) const;

  // From the table of kinds; "Unknown" for one that has no kind of its own.
  [[nodiscard]] static const char* KindName(const TmyControl& control) noexcept;

 private:
  TmyList controls_;  // TmyControl pointers, not owned, oldest first
};
