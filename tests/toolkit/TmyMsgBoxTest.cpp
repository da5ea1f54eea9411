#include "toolkit/TmyMsgBox.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/CentredPlace.h"

using TmyMsgBoxTest = ControlFixture;

TEST_F(TmyMsgBoxTest, ShowsAllItSaysOnTheScreenWhereverItsOwnerIsAndWhateverTheTextsSize) {
  const std::string path(200, 'x');
  window_->SetBounds(GetSystemMetrics(SM_CXSCREEN) - 100, GetSystemMetrics(SM_CYSCREEN) - 50, 400, 300);
  auto* box = new TmyMsgBox(*window_, "Export", (path + "\ncould not be written").c_str(), {"OK"});
  const auto* label = static_cast<TmyLabel*>(box->NextChild(nullptr));
  for (const int percent : {100, 150, 100}) {
    TmyApplication::Get().Theme().SetTextPercent(percent);
    box->ThemeChanged();
    const RECT work = WorkAreaAt(box->Bounds());
    RECT shared;
    EXPECT_TRUE(IntersectRect(&shared, &work, &box->Bounds()) && EqualRect(&shared, &box->Bounds())) << percent;
    const SIZE text = label->SizeFor(label->Width());
    EXPECT_TRUE(text.cx <= label->Width() && text.cy <= label->Height()) << percent;
    EXPECT_LE(label->Width(), 2 * TmyApplication::Get().Theme().Scaled(420));
  }
}
