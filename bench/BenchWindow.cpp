// Filtering, sorting and painting in a real window on the screen: from the wish to the end of the repaint. What the
// system does later, such as carrying the picture to the screen, is not counted.

#include "app/EibiGrid.h"
#include "app/FilterPanel.h"
#include "bench/Bench.h"

namespace {

constexpr double kFrameAim = 16.0;  // milliseconds, for filter, sort and repaint together
constexpr uint32_t kFrameRows = 10000;
constexpr double kPaintAim = 1.2;  // painting beside that of the fewest rows: a grid paints what is in view
constexpr uint32_t kPaintRuns = 61;

// As large as the main window when it opens. Grids in it are shown one at a time: hidden ones are not painted.
class BenchFrame : public TmyComponent {
 public:
  BenchFrame() : TmyComponent("Bench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 0, 800, 600, nullptr) {
    Show(true);
  }
};

class BenchGrid {
 public:
  BenchGrid(BenchFrame& frame, const std::string& text) : grid_(frame) {
    const ScheduleFolder folder(text);
    grid_.Load(folder.Path());
    grid_.sortChanged.Bind<&BenchGrid::Sorted>(this);
    grid_.Control().SetBounds(0, 0, frame.ClientWidth(), frame.ClientHeight());
    Filter(FilterRecord{});
  }
  ~BenchGrid() { grid_.Control().Destroy(); }

  [[nodiscard]] uint32_t Rows() const { return grid_.RecordCount(); }
  // As the filter panel wants them after a load.
  void CollectTexts() const {
    for (uint32_t filter = 0; filter < FilterPanel::kTextFilters; ++filter) {
      const std::vector<FilterText> texts = grid_.FilterTexts(filter);
      static_cast<void>(texts);
    }
  }
  void Show(bool visible) {
    grid_.Control().Show(visible);
    PaintNow();
  }
  void Filter(const FilterRecord& filter) { grid_.Refresh(filter, {}, false); }
  void SortBy(uint32_t column) { grid_.Control().titleClicked(static_cast<int>(column)); }
  // What was invalid, with the scroll bars.
  void PaintNow() { RedrawWindow(grid_.Control().Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }
  void PaintAll() {
    RedrawWindow(grid_.Control().Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  }

 private:
  void Sorted() { grid_.Refresh(FilterRecord{}, {}, true); }

  EibiGrid grid_;
};

void DispatchWaiting() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

FilterRecord SomeStation() {
  FilterChoices choices;
  choices.texts[0] = "BBC";
  return BuildFilterRecord(choices);
}

uint32_t RunsFor(const BenchGrid& grid) {
  return grid.Rows() > 50000 ? 7 : 31;
}

// From a list with few rows to all rows.
double TimeFilterToPicture(BenchGrid& grid) {
  return Bench::MedianMs(
      RunsFor(grid),
      [&] {
        grid.Filter(SomeStation());
        grid.PaintNow();
        DispatchWaiting();
      },
      [&] {
        grid.Filter(FilterRecord{});
        grid.PaintNow();
      });
}

void PrintFrame(const char* what, uint32_t rows, double milliseconds) {
  if (rows <= kFrameRows) {
    Bench::PrintMs(what, rows, milliseconds, kFrameAim);
  } else {
    Bench::PrintMs(what, rows, milliseconds);
  }
}

void BenchRefresh(BenchFrame& frame, const std::string& text) {
  BenchGrid grid(frame, text);
  grid.Show(true);
  DispatchWaiting();
  const double texts = Bench::MedianMs(
      RunsFor(grid), [] {}, [&] { grid.CollectTexts(); });
  Bench::PrintMs("choices of the four text filters", grid.Rows(), texts);
  PrintFrame("filter change to repainted grid", grid.Rows(), TimeFilterToPicture(grid));
  for (uint32_t column = 0; column < kEibiShownColumns; ++column) {
    grid.SortBy(column);
    char what[80];
    snprintf(what, sizeof what, "filter, sort by %s, repaint", kEibiColumnInfos[column].title);
    PrintFrame(what, grid.Rows(), TimeFilterToPicture(grid));
  }
}

// By turns, so that a busy moment of the machine meets all.
void BenchPainting(BenchFrame& frame, const ScheduleText& schedule) {
  BenchGrid grids[] = {
      {frame, schedule.Cut(1000)}, {frame, schedule.Cut(10000)}, {frame, schedule.Cut(ScheduleText::kMaximumRows)}};
  std::vector<double> times[std::size(grids)];
  for (uint32_t run = 0; run < kPaintRuns; ++run) {
    for (size_t i = 0; i < std::size(grids); ++i) {
      grids[i].Show(true);
      DispatchWaiting();
      times[i].push_back(Bench::MedianMs(
          1, [] {}, [&] { grids[i].PaintAll(); }));
      grids[i].Show(false);
    }
  }
  const double fewest = Bench::Median(times[0]);
  for (size_t i = 0; i < std::size(grids); ++i) {
    const double time = Bench::Median(times[i]);
    Bench::PrintMs("repaint of the whole grid", grids[i].Rows(), time);
    if (i > 0) Bench::PrintRatio("  beside 1,000 rows", grids[i].Rows(), time / fewest, kPaintAim);
  }
}

}  // namespace

void BenchWindow(const ScheduleText& schedule) {
  auto* frame = new BenchFrame();  // belongs to its window
  BenchRefresh(*frame, schedule.Given());
  BenchRefresh(*frame, schedule.Cut(kFrameRows));
  BenchRefresh(*frame, schedule.Largest());
  BenchPainting(*frame, schedule);
  frame->Destroy();
}
