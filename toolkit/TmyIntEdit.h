// Marlux 3. A field for a whole number within bounds. Up, Down, Page Up and Page Down step.
//
// While the user types the text may be anything that its characters allow; Value() is always within the bounds.
#pragma once

#include <optional>

#include "toolkit/TmyEdit.h"

class TmyIntEdit : public TmyEdit {
 public:
  explicit TmyIntEdit(TmyComponent& parent, int64_t minimum = 0, int64_t maximum = INT32_MAX,
                      Align align = Align::kLeft);

  // The text as it stands, brought into the bounds; the last readable one's value while it is unreadable.
  [[nodiscard]] int64_t Value() const noexcept { return value_; }
  void SetValue(int64_t value);  // brought into the bounds; raises nothing
  // The value is brought into new bounds. `maximum` below `minimum` counts as `minimum`.
  void SetRange(int64_t minimum, int64_t maximum);
  [[nodiscard]] int64_t Minimum() const noexcept { return minimum_; }
  [[nodiscard]] int64_t Maximum() const noexcept { return maximum_; }
  void SetSteps(int64_t step, int64_t page) noexcept;  // of the arrow keys and of the Page keys
  virtual void Step(int steps, bool page);             // by the user, down when negative; nothing of the field after it

  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;

 protected:
  [[nodiscard]] virtual std::optional<int64_t> ValueOf(std::string_view text) const;
  [[nodiscard]] virtual TmyString TextOf(int64_t value) const;
  [[nodiscard]] virtual bool Accepts(char character) const noexcept;

  void TextChanged() override;
  void Normalize() override;
  bool PasteText(const TmyString& text) override;

 private:
  [[nodiscard]] int64_t Bounded(int64_t value) const noexcept;

  int64_t minimum_;
  int64_t maximum_;
  int64_t value_;
  int64_t step_ = 1;
  int64_t page_ = 10;
};
