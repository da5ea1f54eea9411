// Marlux 3. A drawn line of text, or several with CR LF between them.
#pragma once

#include "toolkit/TmyControl.h"

class Tmy_Label : public TmyControl {
 public:
  enum class Align { kLeft, kCenter, kRight };

  explicit Tmy_Label(TmyComponent& owner, const TmyString& text = {}, Align align = Align::kLeft)
      : TmyControl(owner), text_(text), align_(align) {}

  [[nodiscard]] const TmyString& Text() const noexcept { return text_; }
  void SetText(const TmyString& text);
  // The same, but of a text as long as the former one no memory is taken: for labels that change all the time.
  void Overwrite(std::string_view text);
  void SetSecondary(bool secondary);  // in the colour of what matters less

  // For a text that is not cut, in pixels.
  [[nodiscard]] SIZE PreferredSize() const;
  [[nodiscard]] int PreferredWidth() const { return static_cast<int>(PreferredSize().cx); }

  void Paint(HDC dc) override;

 private:
  TmyString text_;
  Align align_;
  bool secondary_ = false;
};
