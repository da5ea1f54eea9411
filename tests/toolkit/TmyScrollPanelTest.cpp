#include "toolkit/TmyScrollPanel.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/TmyEdit.h"
#include "toolkit/TmyInvisiblePanel.h"
#include "toolkit/Tmy_CheckBox.h"

namespace {

constexpr int kRow = 40;

// Two columns of a drawn box and an edit while it is wide, one when it is narrow.
class TwoFields : public TmyScrollPanel {
 public:
  explicit TwoFields(TmyComponent& parent) : TmyScrollPanel(parent, WS_VISIBLE | WS_TABSTOP) { edit->Show(true); }
  int ContentHeight(int width) const override { return width >= 200 ? kRow : 2 * kRow; }

  Tmy_CheckBox box{*this, "Box"};
  TmyEdit* edit = new TmyEdit(*this);

 protected:
  void PlaceContent(int width, int top) override {
    box.SetBounds(0, top, 100, kRow);
    edit->SetBounds(width >= 200 ? 100 : 0, top + ContentHeight(width) - kRow, 100, kRow);
  }
};

struct TmyScrollPanelTest : ControlFixture {
  TwoFields* panel_ = new TwoFields(*window_);
};

TEST_F(TmyScrollPanelTest, ScrollsWhatDoesNotFit) {
  panel_->SetBounds(0, 0, 200, kRow);
  EXPECT_FALSE(panel_->IsScrollable());
  Input::Wheel(*panel_, -1);
  EXPECT_EQ(window_->wheels, 1) << "nothing to scroll: the parent's";
  panel_->SetBounds(0, 0, 200, kRow - 1);
  EXPECT_EQ(panel_->Bar().MaxPosition(), kRow + 1) << "the bar itself made the content higher";
  Input::Wheel(*panel_, -1);
  EXPECT_LT(panel_->box.Bounds().top, 0);
  panel_->SetBounds(0, 0, 200, 2 * kRow);
  EXPECT_EQ(panel_->box.Bounds().top, 0);
}

TEST_F(TmyScrollPanelTest, TheFocusBringsAControlIntoView) {
  panel_->SetBounds(0, 0, 150, kRow + 20);
  panel_->edit->TakeFocus();
  EXPECT_EQ(panel_->edit->Bounds().bottom, panel_->ClientHeight());
  panel_->TakeFocus();
  panel_->FocusDrawn(&panel_->box);
  EXPECT_EQ(panel_->box.Bounds().top, 0);
  panel_->edit->TakeFocus();
  BYTE released[256] = {}, pressed[256] = {};
  pressed[VK_LBUTTON] = 0x80;
  SetKeyboardState(pressed);
  Input::Mouse(*panel_, WM_LBUTTONDOWN, 5, 5);
  SetKeyboardState(released);
  EXPECT_LT(panel_->box.Bounds().top, 0) << "moved away from under the mouse";
}

TEST_F(TmyScrollPanelTest, AnInvisiblePanelTakesTheMouseForItsControlsOnly) {
  auto* panel = new TmyInvisiblePanel(*window_);
  Tmy_CheckBox box(*panel, "");
  panel->SetBounds(20, 40, 100, 50);
  box.SetBounds(0, 30, 20, 20);
  for (const auto& [x, part] : {std::pair{5, HTCLIENT}, {50, HTTRANSPARENT}}) {
    POINT at = {x, 35};
    ClientToScreen(panel->Handle(), &at);
    EXPECT_EQ(SendMessageA(panel->Handle(), WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y)), part) << x;
  }
}

}  // namespace
