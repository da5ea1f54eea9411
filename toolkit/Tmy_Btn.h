// Marlux 3. A drawn push button. A click, Space or Enter presses it.
#pragma once

#include "toolkit/Tmy_Clickable.h"

class Tmy_Btn : public Tmy_Clickable {
 public:
  Tmy_Btn(TmyComponent& owner, const TmyString& caption) : Tmy_Clickable(owner, caption) {}

  TmyEvent<Tmy_Btn&> clicked;

  // The look of the button that Enter presses anywhere in the window. The window does so itself: in its Confirm() it
  // calls Press().
  void SetDefault(bool isDefault);
  void Press();  // as if the user had clicked; nothing while disabled or hidden

  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Paint(HDC dc) override;
  [[nodiscard]] SIZE PreferredSize() const override;

 protected:
  void Click() override { clicked(*this); }

 private:
  bool default_ = false;
};
