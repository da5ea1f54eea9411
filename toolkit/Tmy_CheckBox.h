// Marlux 3. A drawn check box. A click or Space changes it.
#pragma once

#include "toolkit/Tmy_Clickable.h"

class Tmy_CheckBox : public Tmy_Clickable {
 public:
  Tmy_CheckBox(TmyComponent& owner, const TmyString& caption) : Tmy_Clickable(owner, caption) {}

  TmyEvent<Tmy_CheckBox&> clicked;  // by the user, after the change

  [[nodiscard]] bool IsChecked() const noexcept { return checked_; }
  void SetChecked(bool checked);  // raises nothing

  void Paint(HDC dc) override;
  [[nodiscard]] SIZE PreferredSize() const override { return MarkedSize(); }

 protected:
  void Click() override;

 private:
  bool checked_ = false;
};
