// Marlux 3. What the drawn push button, check box and option button share: a caption, and being pressed with the mouse
// or the Space key. An "&" in a caption underlines the character behind it; "&&" shows one.
#pragma once

#include "toolkit/TmyControl.h"
#include "toolkit/TmyEvent.h"

class Tmy_Clickable : public TmyControl {
 public:
  void SetCaption(const TmyString& caption);
  [[nodiscard]] const TmyString& Caption() const noexcept { return caption_; }
  // For a caption that is not cut, in pixels.
  [[nodiscard]] virtual SIZE PreferredSize() const = 0;
  [[nodiscard]] int PreferredWidth() const { return static_cast<int>(PreferredSize().cx); }

  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  void MouseLeft() override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  [[nodiscard]] bool CanFocus() const override { return true; }

 protected:
  Tmy_Clickable(TmyComponent& owner, const TmyString& caption) : TmyControl(owner), caption_(caption) {}

  virtual void Click() = 0;  // by the user; nothing of ours after it
  [[nodiscard]] bool IsHot() const { return inside_ && IsEnabled(); }
  [[nodiscard]] bool IsPressed() const;
  [[nodiscard]] int CaptionWidth() const;  // pixels

  // A mark of Scaled(kMarkSize) pixels at the left, the caption beside it.
  static constexpr int kMarkSize = 13;
  [[nodiscard]] SIZE MarkedSize() const;
  [[nodiscard]] RECT MarkArea() const;
  void PaintMarkedCaption(HDC dc) const;
  // The outline of a mark that is not filled, as the mouse and being disabled have it.
  [[nodiscard]] COLORREF OutlineColor() const;
  [[nodiscard]] COLORREF InsideColor() const;
  [[nodiscard]] COLORREF FilledColor() const;  // of one that is, the same

 private:
  void SetInside(bool inside);

  TmyString caption_;
  bool pressed_ = false;
  bool inside_ = false;  // the cursor, with or without a pressed button
};
