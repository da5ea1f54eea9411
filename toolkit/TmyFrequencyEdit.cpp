#include "toolkit/TmyFrequencyEdit.h"

#include "foundation/FrequencyText.h"

namespace {
constexpr int64_t kStep = 1000;  // Hz
constexpr int64_t kPage = 5000;  // the distance of shortwave channels
}  // namespace

TmyFrequencyEdit::TmyFrequencyEdit(TmyComponent& parent, int64_t minimum, int64_t maximum, Align align)
    : TmyIntEdit(parent, minimum, maximum, align) {
  SetSteps(kStep, kPage);
  SetValue(Value());  // in our own form
}

std::optional<int64_t> TmyFrequencyEdit::ValueOf(std::string_view text) const {
  return ParseFrequency(text);
}

TmyString TmyFrequencyEdit::TextOf(int64_t value) const {
  return FormatKhz(value);
}

// Only one of the numbers on a page is meant, and letters of other words are no unit.
bool TmyFrequencyEdit::PasteText(const TmyString& text) {
  const TmyString frequency = FindFrequency(text.View());
  if (!frequency.IsEmpty()) ReplaceSelection(frequency);
  return true;
}

bool TmyFrequencyEdit::Accepts(char character) const noexcept {
  constexpr std::string_view kAccepted = "0123456789.,kKmMhHzZ";
  return kAccepted.find(character) != std::string_view::npos;
}
