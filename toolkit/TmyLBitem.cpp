#include "toolkit/TmyLBitem.h"

#include <windows.h>

#include <array>

namespace {

// By the system's ANSI code page, so that accented letters fold, too.
std::array<char, 256> LowerCaseTable() noexcept {
  std::array<char, 256> table{};
  for (size_t i = 0; i < table.size(); ++i) table[i] = static_cast<char>(i);
  CharLowerBuffA(table.data() + 1, 255);  // not the zero
  return table;
}

}  // namespace

int32_t ListSearch::FindExact(const TmyLBitemList& items, std::string_view text) noexcept {
  for (uint32_t i = 0; i < items.Count(); ++i) {
    if (items.Get(i)->text.View() == text) return static_cast<int32_t>(i);
  }
  return -1;
}

int32_t ListSearch::FindPrefix(const TmyLBitemList& items, std::string_view prefix) {
  if (prefix.empty()) return -1;
  const std::array<char, 256> lower = LowerCaseTable();
  const auto same = [&](char a, char b) { return lower[static_cast<uint8_t>(a)] == lower[static_cast<uint8_t>(b)]; };
  for (uint32_t i = 0; i < items.Count(); ++i) {
    const std::string_view text = items.Get(i)->text.View();
    if (text.size() < prefix.size()) continue;
    size_t at = 0;
    while (at < prefix.size() && same(text[at], prefix[at])) ++at;
    if (at == prefix.size()) return static_cast<int32_t>(i);
  }
  return -1;
}
