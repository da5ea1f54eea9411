// Marlux 3. A field for a frequency: holds Hz, shows and takes kHz with up to three decimals ("6005", "9420.5"), also
// takes "6005k" and "6.005M". Up and Down step 1 kHz, Page Up and Page Down 5 kHz. Bounds are in Hz.
#pragma once

#include "toolkit/TmyIntEdit.h"

class TmyFrequencyEdit : public TmyIntEdit {
 public:
  static constexpr int64_t kHighest = 0xFFFFFFFF;  // Hz: what a schedule's record can hold

  explicit TmyFrequencyEdit(TmyComponent& parent, int64_t minimum = 0, int64_t maximum = kHighest,
                            Align align = Align::kLeft);

 protected:
  [[nodiscard]] std::optional<int64_t> ValueOf(std::string_view text) const override;
  [[nodiscard]] TmyString TextOf(int64_t value) const override;
  [[nodiscard]] bool Accepts(char character) const noexcept override;
  bool PasteText(const TmyString& text) override;
};
