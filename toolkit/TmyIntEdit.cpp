#include "toolkit/TmyIntEdit.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include "toolkit/ListKeys.h"

namespace {

// The sum, or the end of the numbers that it would pass.
int64_t SaturatingSum(int64_t value, int64_t distance) noexcept {
  constexpr int64_t kLowest = std::numeric_limits<int64_t>::min();
  constexpr int64_t kHighest = std::numeric_limits<int64_t>::max();
  if (distance > 0 && value > kHighest - distance) return kHighest;
  if (distance < 0 && value < kLowest - distance) return kLowest;
  return value + distance;
}

}  // namespace

TmyIntEdit::TmyIntEdit(TmyComponent& parent, int64_t minimum, int64_t maximum, Align align)
    : TmyEdit(parent, align), minimum_(minimum), maximum_(std::max(minimum, maximum)), value_(Bounded(0)) {
  SetText(TmyString::FromDecimal(value_));
}

int64_t TmyIntEdit::Bounded(int64_t value) const noexcept {
  return std::clamp(value, minimum_, maximum_);
}

void TmyIntEdit::SetValue(int64_t value) {
  value_ = Bounded(value);
  SetText(TextOf(value_));
}

void TmyIntEdit::SetRange(int64_t minimum, int64_t maximum) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  if (value_ != Bounded(value_)) SetValue(value_);
}

void TmyIntEdit::SetSteps(int64_t step, int64_t page) noexcept {
  step_ = step;
  page_ = page;
}

// number := [ "-" ] digits      (blanks around)
std::optional<int64_t> TmyIntEdit::ValueOf(std::string_view text) const {
  text = TmyString::TrimView(text);
  int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size()) return std::nullopt;
  // A readable number that is too large for us is beyond the bounds, too.
  if (error == std::errc::result_out_of_range) return text.front() == '-' ? minimum_ : maximum_;
  if (error != std::errc()) return std::nullopt;
  return value;
}

TmyString TmyIntEdit::TextOf(int64_t value) const {
  return TmyString::FromDecimal(value);
}

bool TmyIntEdit::Accepts(char character) const noexcept {
  return (character >= '0' && character <= '9') || (character == '-' && minimum_ < 0);
}

void TmyIntEdit::TextChanged() {
  if (const std::optional<int64_t> value = ValueOf(Text().View())) value_ = Bounded(*value);
}

void TmyIntEdit::Normalize() {
  SetText(TextOf(value_));
}

void TmyIntEdit::Step(int steps, bool page) {
  SetTextByUser(TextOf(Bounded(SaturatingSum(value_, steps * (page ? page_ : step_)))));
}

bool TmyIntEdit::KeyDown(uint32_t key, LPARAM flags) {
  const bool isArrow = key == VK_UP || key == VK_DOWN;
  const bool isPage = key == VK_PRIOR || key == VK_NEXT;
  if ((!isArrow && !isPage) || ListKeys::IsWithAlt(flags)) return TmyEdit::KeyDown(key, flags);
  Step(key == VK_UP || key == VK_PRIOR ? 1 : -1, isPage);
  return true;
}

void TmyIntEdit::Char(char& character, LPARAM flags) {
  TmyEdit::Char(character, flags);
  const bool isControl = static_cast<uint8_t>(character) < ' ';  // backspace, cut, copy, paste, undo
  if (!isControl && !Accepts(character)) character = 0;
}

// What a page or a mail has around the number is left out: blanks, line ends, units.
bool TmyIntEdit::PasteText(const TmyString& text) {
  std::string accepted;
  for (const char c : text.View()) {
    if (Accepts(c)) accepted += c;
  }
  if (!accepted.empty()) ReplaceSelection(TmyString(accepted));
  return true;
}
