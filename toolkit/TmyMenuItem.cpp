#include "toolkit/TmyMenuItem.h"

#include <map>
#include <new>

namespace {

// All live items of the module by command number. Numbers are unique in the module, so that a command finds its item
// whichever window it arrives at; numbers below 1,000 stay free for system controls. Made when the module is loaded:
// the runtime guards a local static with memory and crashes when there is none.
constexpr uint16_t kFirstId = 1000;
constexpr uint16_t kLastId = 0xEFFF;  // above, the system's own commands begin

std::map<uint16_t, TmyMenuItem*> liveItems;  // owned by their menus

uint16_t FreeId() {
  static uint16_t last = kLastId;
  for (uint32_t tries = 0; tries <= uint32_t{kLastId} - kFirstId; ++tries) {
    last = last >= kLastId ? kFirstId : static_cast<uint16_t>(last + 1);
    if (liveItems.count(last) == 0) return last;
  }
  return 0;
}

}  // namespace

TmyMenuItem::TmyMenuItem(HMENU menu, const TmyString& text) : menu_(menu), text_(text), id_(FreeId()) {
  if (!AppendMenuA(menu_, MF_STRING, id_, text_.Chars())) throw std::bad_alloc();
  liveItems[id_] = this;
}

TmyMenuItem::~TmyMenuItem() {
  liveItems.erase(id_);
}

void TmyMenuItem::Enable(bool enabled) noexcept {
  EnableMenuItem(menu_, id_, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED | MF_DISABLED));
}

void TmyMenuItem::Check(bool checked) noexcept {
  CheckMenuItem(menu_, id_, MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
}

bool TmyMenuItem::IsEnabled() const noexcept {
  return (GetMenuState(menu_, id_, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED)) == 0;
}

bool TmyMenuItem::IsChecked() const noexcept {
  return (GetMenuState(menu_, id_, MF_BYCOMMAND) & MF_CHECKED) != 0;
}

bool TmyMenuItem::RaiseById(uint16_t id) {
  const auto found = liveItems.find(id);
  if (found == liveItems.end() || !found->second->IsEnabled()) return false;
  TmyMenuItem& item = *found->second;
  const TmyEvent<TmyMenuItem&> event = item.chosen;
  event(item);
  return true;
}
