#include "toolkit/DebugListing.h"

#include <iterator>

#include "foundation/Trace.h"
#include "toolkit/TmyComboBox2.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/TmyIntEdit.h"
#include "toolkit/TmyInvisiblePanel.h"
#include "toolkit/TmyListBox.h"
#include "toolkit/TmyPublicTimer.h"
#include "toolkit/TmyStringGrid.h"
#include "toolkit/TmyTimeEdit.h"
#include "toolkit/TmyUpDown.h"
#include "toolkit/Tmy_Clickable.h"
#include "toolkit/Tmy_Label.h"

namespace {

// The kinds that all modules with this toolkit have; not each of them has a control here.
constexpr const char* kKindNames[] = {
    "Window",  "Component",       "Panel",           "Button",     "ScrollBar", "Edit",     "IntEdit",
    "Memo",    "NamedPipeServer", "NamedPipeClient", "Header",     "Listbox",   "ComboBox", "InviPanel",
    "S-Meter", "TreeView",        "TabControl",      "StringGrid", "Calendar",  "TimeEdit", "UpDown",
    "Scope",   "Scope3D",         "Unknown",         "_Knob",      "_SMeter",   "_Label"};

enum Kind : size_t {
  kWindow = 0,
  kComponent = 1,
  kPanel = 2,
  kButton = 3,
  kScrollBar = 4,
  kEdit = 5,
  kIntEdit = 6,
  kListbox = 11,
  kComboBox = 12,
  kInviPanel = 13,
  kStringGrid = 17,
  kTimeEdit = 19,
  kUpDown = 20,
  kUnknown = 23,
  kLabel = 26,
};
static_assert(std::size(kKindNames) == kLabel + 1);

template <class Class>
bool Is(const TmyControl& control) noexcept {
  return dynamic_cast<const Class*>(&control) != nullptr;
}

struct KindTest {
  bool (*matches)(const TmyControl& control) noexcept;
  Kind kind;
};

// Derived classes before their bases.
constexpr KindTest kKindTests[] = {
    {&Is<TmyTimeEdit>, kTimeEdit},
    {&Is<TmyIntEdit>, kIntEdit},
    {&Is<TmyEdit>, kEdit},
    {&Is<TmyScrollBar>, kScrollBar},
    {&Is<TmyListBox>, kListbox},
    {&Is<TmyComboBox2>, kComboBox},
    {&Is<TmyUpDown>, kUpDown},
    {&Is<TmyPanel>, kPanel},
    {&Is<TmyStringGrid>, kStringGrid},
    {&Is<TmyInvisiblePanel>, kInviPanel},
    {&Is<Tmy_Clickable>, kButton},
    {&Is<Tmy_Label>, kLabel},
};

TmyString TextOf(const TmyControl& control) {
  if (const auto* component = dynamic_cast<const TmyComponent*>(&control)) {
    return component->IsAlive() ? component->Caption() : TmyString();
  }
  if (const auto* label = dynamic_cast<const Tmy_Label*>(&control)) return label->Text();
  const auto* button = dynamic_cast<const Tmy_Clickable*>(&control);
  return button ? button->Caption() : TmyString();
}

}  // namespace

const char* DebugListing::KindName(const TmyControl& control) noexcept {
  for (const KindTest& test : kKindTests) {
    if (test.matches(control)) return kKindNames[test.kind];
  }
  const auto* component = dynamic_cast<const TmyComponent*>(&control);
  if (!component) return kKindNames[kUnknown];
  return kKindNames[component->GetParent() ? kComponent : kWindow];
}

void DebugListing::Remove(const TmyControl& control) noexcept {
  if (const int32_t at = controls_.IndexOf(&control); at >= 0) controls_.Delete(static_cast<uint32_t>(at));
}

TmyString DebugListing::LineOf(uint32_t index) const {
  const auto& control = *static_cast<const TmyControl*>(controls_.Get(index));
  const char* kind = KindName(control);
  const auto* address = static_cast<const void*>(&control);
  const TmyString text = TextOf(control);
  const auto* window = dynamic_cast<const TmyWindowBase*>(&control);
  if (!window) {
    return Formatted("%4u: [%8u]\t<%10s:%p>\t%s", index, control.Stamp(), kind, address, text.Chars());
  }
  const auto handle = static_cast<unsigned>(reinterpret_cast<uintptr_t>(window->Handle()));
  return Formatted("%4u: [%8u]\t<%10s:%p-%6x>\t%s", index, control.Stamp(), kind, address, handle, text.Chars());
}

void DebugListing::Write() const {
  Trace::Line("%u components alive", Count());
  for (uint32_t i = 0; i < Count(); ++i) Trace::Line("%s", LineOf(i).Chars());
}
