#include "gallery/Samples.h"

#include "toolkit/ProgressBar.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyCalendar.h"
#include "toolkit/TmyComboBox2.h"
#include "toolkit/TmyFloatingSelection.h"
#include "toolkit/TmyFrequencyEdit.h"
#include "toolkit/TmyInvisiblePanel.h"
#include "toolkit/TmyLabel.h"
#include "toolkit/TmyListBox.h"
#include "toolkit/TmyScrollPanel.h"
#include "toolkit/TmySlider.h"
#include "toolkit/TmySplitter.h"
#include "toolkit/TmyStringGrid.h"
#include "toolkit/TmyTimeEdit.h"
#include "toolkit/TmyUpDown.h"
#include "toolkit/Tmy_Btn2.h"
#include "toolkit/Tmy_CheckBox.h"
#include "toolkit/Tmy_Label.h"
#include "toolkit/Tmy_OptionButton.h"

namespace {

void Fill(const SampleCell& cell, TmyControl& control) {
  control.SetBounds(0, 0, cell.ClientWidth(), cell.ClientHeight());
  control.Show(true);
}

void MakeButton(SampleCell& cell) {
  Fill(cell, cell.Draw<Tmy_Btn>("Button"));
}

void MakeDefaultButton(SampleCell& cell) {
  auto& button = cell.Draw<Tmy_Btn>("Default");
  button.SetDefault(true);
  Fill(cell, button);
}

void MakeCheckBox(SampleCell& cell) {
  auto& box = cell.Draw<Tmy_CheckBox>("Check box");
  box.SetChecked(true);
  Fill(cell, box);
}

void MakeEmptyCheckBox(SampleCell& cell) {
  Fill(cell, cell.Draw<Tmy_CheckBox>("Not checked"));
}

void MakeOption(SampleCell& cell) {
  auto& option = cell.Draw<Tmy_OptionButton>("Option", 1u);
  option.SetChecked(true);
  Fill(cell, option);
}

void MakeEmptyOption(SampleCell& cell) {
  Fill(cell, cell.Draw<Tmy_OptionButton>("Not chosen", 1u));
}

void MakeDrawnLabel(SampleCell& cell) {
  Fill(cell, cell.Draw<Tmy_Label>("One drawn line"));
}

void MakeEdit(SampleCell& cell) {
  auto* edit = new TmyEdit(cell);
  edit->SetText("Text");
  Fill(cell, *edit);
}

void MakeUpDown(SampleCell& cell) {
  auto* edit = new TmyIntEdit(cell, 0, 1000, TmyEdit::Align::kRight);
  edit->SetValue(128);
  auto* upDown = new TmyUpDown(cell, *edit);
  const int width = cell.ClientWidth() - TmyUpDown::PreferredWidth();
  edit->SetBounds(0, 0, width, cell.ClientHeight());
  upDown->SetBounds(width, 0, TmyUpDown::PreferredWidth(), cell.ClientHeight());
  edit->Show(true);
  upDown->Show(true);
}

void MakeFrequencyEdit(SampleCell& cell) {
  auto* edit = new TmyFrequencyEdit(cell);
  edit->SetValue(7325500);
  Fill(cell, *edit);
}

void MakeTimeEdit(SampleCell& cell) {
  auto* edit = new TmyTimeEdit(cell);
  edit->SetValue(52200);
  Fill(cell, *edit);
}

void MakeComboBox(SampleCell& cell) {
  auto* list = new TmyComboBox2(cell);
  list->Add("Choice");
  list->Add("Other");
  list->SetSelection(0);
  Fill(cell, *list);
}

void MakeScrollBar(SampleCell& cell) {
  auto* bar = new TmyScrollBar(cell, TmyScrollBar::Direction::kHorizontal);
  bar->SetRange(100, 40);
  bar->SetPosition(20);
  bar->SetBounds(0, (cell.ClientHeight() - TmyScrollBar::Thickness()) / 2, cell.ClientWidth(),
                 TmyScrollBar::Thickness());
  bar->Show(true);
}

void PaintSquare(HDC dc, const RECT& square, COLORREF color) {
  const int quarter = (square.right - square.left) / 4;
  ThemeDraw::Fill(dc, {square.left + quarter, square.top + quarter, square.right - quarter, square.bottom - quarter},
                  color);
}

Tmy_Btn2& MakePicture(SampleCell& cell) {
  auto& button = cell.Draw<Tmy_Btn2>("Stop", &PaintSquare);
  Fill(cell, button);
  button.SetBounds(0, 0, button.PreferredWidth(), cell.ClientHeight());
  return button;
}

void MakePictureButton(SampleCell& cell) {
  MakePicture(cell);
}

void MakeLitButton(SampleCell& cell) {
  MakePicture(cell).SetLit(true);
}

void MakeCalendar(SampleCell& cell) {
  auto* calendar = new TmyCalendar(cell);
  calendar->SetValue({2026, 3, 0, 29, 0, 0, 0, 0});
  Fill(cell, *calendar);
}

void MakeSlider(SampleCell& cell) {
  auto* slider = new TmySlider(cell, "Position");
  slider->SetRange(100);
  slider->SetPosition(40);
  Fill(cell, *slider);
}

void MakeProgress(SampleCell& cell, uint32_t range) {
  auto* bar = new ProgressBar(cell);
  bar->SetRange(range);
  bar->SetPosition(60);
  bar->SetBounds(0, cell.ClientHeight() / 4, cell.ClientWidth(), cell.ClientHeight() / 2);
  bar->Show(true);
}

void MakeProgressBar(SampleCell& cell) {
  MakeProgress(cell, 100);
}

void MakeRunningBar(SampleCell& cell) {
  MakeProgress(cell, 0);
}

void MakeLabel(SampleCell& cell) {
  Fill(cell, *new TmyLabel(cell, "A text that is broken into lines where the width of its window ends."));
}

void MakeListBox(SampleCell& cell) {
  auto* list = new TmyListBox(cell);
  for (const char* text : {"Aurora", "Boreal", "Crux", "Delta", "Echo", "Foxtrot", "Golf"}) list->Add(text);
  Fill(cell, *list);
  list->SetSelection(1);
}

class SampleModel final : public TmyGridModel {
 public:
  [[nodiscard]] uint32_t RowCount() const override { return 9; }
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override {
    constexpr const char* kStations[] = {"Radio Aurora", "Boreal", "Crux Radio"};
    text.Set(column == 0 ? TmyString::FromDecimal(6005 + 5 * int64_t{record}).View() : kStations[record % 3]);
  }
  [[nodiscard]] bool IsMarked(uint32_t record) const override { return record == 0; }
};
const SampleModel kModel;

class EmptyModel final : public TmyGridModel {
 public:
  [[nodiscard]] uint32_t RowCount() const override { return 0; }
  void CellText(uint32_t, uint32_t, TmyCellText&) const override {}
  [[nodiscard]] const char* EmptyText() const override { return "No rows"; }
};
const EmptyModel kEmptyModel;

TmyStringGrid* NewGrid(SampleCell& cell, const TmyGridModel* model) {
  auto* grid = new TmyStringGrid(cell);
  const TmyGridColumn columns[] = {{"Freq", Theme().Scaled(56), true}, {"Station", Theme().Scaled(100)}};
  grid->SetColumns(columns, 2);
  grid->SetColumnsMovable(true);
  grid->SetModel(model);
  return grid;
}

void MakeEmptyGrid(SampleCell& cell) {
  Fill(cell, *NewGrid(cell, &kEmptyModel));
}

void MakeGrid(SampleCell& cell) {
  auto* grid = NewGrid(cell, &kModel);
  grid->SetCurrentRow(2, false);
  grid->SetSort(0, true);
  Fill(cell, *grid);
}

void MakeMarkers(SampleCell& cell) {
  auto* grid = NewGrid(cell, &kModel);
  Fill(cell, *grid);
  const RECT title = GridGeometry::ColumnStrip(grid->Layout(), 0);
  auto* piece = new TmyFloatingSelection2(*grid);
  piece->SetText("Freq");
  piece->ShowAt({title.left + 20, title.top, title.right + 20, title.top + Theme().RowHeight()});
  auto* line = new TmyFloatingSelection(*grid);
  line->ShowAt({title.right - 1, title.top, title.right + 1, title.bottom});
}

class SampleScrollPanel : public TmyScrollPanel {
 public:
  explicit SampleScrollPanel(TmyComponent& parent) : TmyScrollPanel(parent, WS_TABSTOP) {
    for (const char* caption : {"First", "Second", "Third", "Fourth", "Fifth", "Sixth"}) {
      boxes_.push_back(std::make_unique<Tmy_CheckBox>(*this, caption));
    }
  }
  [[nodiscard]] int ContentHeight(int) const override {
    return static_cast<int>(boxes_.size()) * Theme().FieldHeight() + Theme().Step();
  }

 protected:
  void PlaceContent(int width, int top) override {
    top += Theme().Step() / 2;
    for (const auto& box : boxes_) {
      box->SetBounds(Theme().Step(), top, width - Theme().Step(), Theme().FieldHeight());
      top += Theme().FieldHeight();
    }
  }

 private:
  std::vector<std::unique_ptr<Tmy_CheckBox>> boxes_;
};

void MakeScrollPanel(SampleCell& cell) {
  Fill(cell, *new SampleScrollPanel(cell));
}

// Two lists with a bar between them.
class SplitPanel : public TmyPanel {
 public:
  SplitPanel(TmyComponent& parent, TmySplitter* (*make)(TmyComponent& parent))
      : TmyPanel(parent, 0), splitter_(make(*this)), first_(new TmyListBox(*this)), second_(new TmyListBox(*this)) {
    splitter_->SetLeast(Theme().Scaled(20), Theme().Scaled(20));
    splitter_->SetLength(Theme().Scaled(40));
    splitter_->moved.Bind<&SplitPanel::BarMoved>(this);
    first_->Add("First");
    second_->Add("Second");
    first_->Show(true);
    second_->Show(true);
  }
  void Realign() override {
    splitter_->Place({0, 0, ClientWidth(), ClientHeight()});
    Put(*first_, splitter_->First());
    Put(*second_, splitter_->Second());
  }

 private:
  void BarMoved(TmySplitter&) { Realign(); }
  static void Put(TmyComponent& part, const RECT& place) {
    part.SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  }

  TmySplitter* splitter_;  // all three belong to their windows
  TmyListBox* first_;
  TmyListBox* second_;
};

template <class Splitter>
void MakeSplitter(SampleCell& cell) {
  Fill(cell, *new SplitPanel(cell, [](TmyComponent& parent) -> TmySplitter* { return new Splitter(parent); }));
}

class StripedPanel : public TmyPanel {
 public:
  explicit StripedPanel(TmyComponent& parent) : TmyPanel(parent, 0), over_(new TmyInvisiblePanel(*this)) {
    box_ = std::make_unique<Tmy_CheckBox>(*over_, "Above stripes");
  }
  void Realign() override {
    over_->SetBounds(0, 0, ClientWidth(), ClientHeight());
    box_->SetBounds(Theme().Step(), Theme().Step(), ClientWidth() - 2 * Theme().Step(), Theme().FieldHeight());
  }
  void Paint(HDC dc) override {
    for (int y = 0; y < ClientHeight(); y += 2 * Theme().Step()) {
      ThemeDraw::Fill(dc, {0, y, ClientWidth(), y + Theme().Step()}, Theme().Color().marked);
    }
  }

 private:
  TmyInvisiblePanel* over_;  // belongs to its window
  std::unique_ptr<Tmy_CheckBox> box_;
};

void MakeInvisiblePanel(SampleCell& cell) {
  Fill(cell, *new StripedPanel(cell));
}

constexpr unsigned Only(State state) {
  return 1u << state;
}
constexpr unsigned kStill = Only(kNormal) | Only(kDisabled);  // neither the mouse nor the keyboard change it
constexpr unsigned kField = kStill | Only(kFocused);
constexpr unsigned kMouse = kStill | Only(kHot) | Only(kPressed);
constexpr unsigned kAll = kMouse | Only(kFocused);

constexpr Sample kSmall[] = {
    {"Tmy_Btn", MakeButton, kAll},
    {"Tmy_Btn, default", MakeDefaultButton, kAll},
    {"Tmy_Btn2", MakePictureButton, kAll, {5, 50}},
    {"Tmy_Btn2, on", MakeLitButton, kAll & ~Only(kHot) & ~Only(kPressed)},
    {"Tmy_CheckBox", MakeEmptyCheckBox, kAll},
    {"Tmy_CheckBox, on", MakeCheckBox, kAll},
    {"Tmy_OptionButton", MakeEmptyOption, kAll},
    {"Tmy_OptionButton, on", MakeOption, kAll},
    {"Tmy_Label", MakeDrawnLabel, kStill},
    {"TmyEdit", MakeEdit, kField},
    {"TmyIntEdit, TmyUpDown", MakeUpDown, kAll, {95, 25}},
    {"TmyFrequencyEdit", MakeFrequencyEdit, kField},
    {"TmyTimeEdit", MakeTimeEdit, kField},
    {"TmyComboBox2", MakeComboBox, kField},
    {"TmyCalendar", MakeCalendar, kField},
    {"TmySlider", MakeSlider, kField},
    {"TmyScrollBar", MakeScrollBar, kMouse, {40, 50}},
    {"ProgressBar", MakeProgressBar, kStill},
    {"ProgressBar, no end known", MakeRunningBar, Only(kNormal)},
};

constexpr Sample kLarge[] = {
    {"TmyStringGrid", MakeGrid, kAll, {70, 10}},
    {"TmyStringGrid, empty", MakeEmptyGrid, kAll, {70, 10}},
    {"TmyFloatingSelection, -2", MakeMarkers, Only(kNormal)},
    {"TmyListBox", MakeListBox, kField | Only(kHot)},
    {"TmyScrollPanel", MakeScrollPanel, kAll, {15, 25}},
    {"TmySplitter", MakeSplitter<TmySplitter>, kAll, {50, 55}},
    {"TmySplitter2", MakeSplitter<TmySplitter2>, kAll, {34, 50}},
    {"TmyInvisiblePanel", MakeInvisiblePanel, kAll, {15, 25}},
    {"TmyLabel", MakeLabel, kStill},
};

}  // namespace

std::span<const Sample> SmallSamples() {
  return kSmall;
}

std::span<const Sample> LargeSamples() {
  return kLarge;
}
