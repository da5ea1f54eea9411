// Reading, filtering and sorting the EiBi schedule: on the file as it is and on the same repeated to the most lines
// that the reader takes.

#include <random>
#include <string>

#include "app/EibiFilter.h"
#include "app/EibiTests.h"
#include "bench/Bench.h"
#include "foundation/TmyStringList.h"
#include "schedule/EibiReader.h"

namespace {

constexpr double kLoadAim = 2.5;
constexpr double kSortAim = 1.5;

uint32_t RunsFor(uint32_t rows) {
  return rows > 50000 ? 5 : 31;
}

// The two by turns, so that a busy moment of the machine meets both. A load also asks the system for the file, which on
// a busy machine takes as long as it has to wait for a processor: the fastest runs tell the work itself.
void BenchLoad(const char* folder, const std::string& text, uint32_t rows) {
  std::vector<double> loads;
  std::vector<double> setTexts;
  for (uint32_t run = 0; run < RunsFor(rows); ++run) {
    std::unique_ptr<TmyTypeList<EibiItem>> items;
    loads.push_back(Bench::MedianMs(
        1, [] {}, [&] { items = LoadEibi(folder); }));
    items.reset();
    TmyStringList lines(1024, ScheduleText::kMaximumLines);
    setTexts.push_back(Bench::MedianMs(
        1, [] {}, [&] { lines.SetText(text.data(), static_cast<uint32_t>(text.size())); }));
  }
  const double load = Bench::Median(loads);
  const double setText = Bench::Median(setTexts);
  Bench::PrintMs("load", rows, load);
  Bench::PrintMs("SetText alone", rows, setText);
  Bench::PrintRatio("load / SetText", rows, load / setText, kLoadAim);
  printf("%-44s %7u rows %10.2f x\n", "load / SetText, fastest runs", rows,
         std::ranges::min(loads) / std::ranges::min(setTexts));
}

void BenchFilter(const char* what, const TmyTypeList<EibiItem>& items, const FilterRecord& filter) {
  TmyList passing;
  const double time = Bench::MedianMs(
      RunsFor(items.Count()), [] {}, [&] { FilterEibi(items, filter, passing); });
  Bench::PrintMs(what, items.Count(), time);
}

void BenchFilters(const TmyTypeList<EibiItem>& items) {
  BenchFilter("filter pass, nothing on", items, FilterRecord{});
  FilterChoices choices;
  choices.frequencyOn = true;
  choices.frequencies = {5900000, 15800000};
  choices.timeOn = true;
  choices.from = 3600;
  choices.to = 80000;
  choices.texts = {"BBC", "E", "Af", "G"};
  BenchFilter("filter pass, all six on", items, BuildFilterRecord(choices));
  FilterChoices station;
  station.texts[0] = "BBC";
  BenchFilter("filter pass, station only", items, BuildFilterRecord(station));
}

using Rows = std::vector<void*>;

void SortByLibrary(Rows& rows, EibiColumn column, const ShownZone& zone) {
  WithEibiTest(column, zone, [&](auto greater) {
    std::sort(rows.begin(), rows.end(), [greater](const void* a, const void* b) {
      return greater(*static_cast<const EibiItem*>(b), *static_cast<const EibiItem*>(a));
    });
  });
}

// Our sort and the library's on the same pointers with the same test, by turns.
void CompareSorts(const char* shape, EibiColumn column, const Rows& rows, const ShownZone& zone) {
  const auto count = static_cast<uint32_t>(rows.size());
  TmyList list(count, 0);
  list.SetSize(count * static_cast<uint32_t>(sizeof(void*)));
  Rows copy;
  std::vector<double> ourTimes;
  std::vector<double> theirTimes;
  for (uint32_t run = 0; run < RunsFor(count); ++run) {
    ourTimes.push_back(Bench::MedianMs(
        1, [&] { std::copy(rows.begin(), rows.end(), list.Entries()); },
        [&] { SortEibi(list, column, SortDirection::kAscending, zone); }));
    theirTimes.push_back(Bench::MedianMs(
        1, [&] { copy = rows; }, [&] { SortByLibrary(copy, column, zone); }));
  }
  const double ours = Bench::Median(ourTimes);
  const double theirs = Bench::Median(theirTimes);
  char what[80];
  snprintf(what, sizeof what, "sort by %s%s, %s", kEibiColumnInfos[static_cast<uint32_t>(column)].title,
           zone.utc ? "" : " (local)", shape);
  Bench::PrintMs(what, count, ours);
  Bench::PrintRatio("  beside std::sort", count, ours / theirs, kSortAim);
}

void BenchShapes(EibiColumn column, const Rows& fileOrder, const ShownZone& zone) {
  CompareSorts("file order", column, fileOrder, zone);
  Rows rows = fileOrder;
  std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
  CompareSorts("shuffled", column, rows, zone);
  SortRecords(rows.data(), rows.size(), SortDirection::kAscending, [&](const void* a, const void* b) {
    return EibiGreater(*static_cast<const EibiItem*>(a), *static_cast<const EibiItem*>(b), column, zone);
  });
  CompareSorts("sorted", column, rows, zone);
  Rows nearly = rows;
  std::swap(nearly.front(), nearly.back());
  CompareSorts("sorted but for two", column, nearly, zone);
  std::reverse(rows.begin(), rows.end());
  CompareSorts("reversed", column, rows, zone);
}

void BenchAllEqual(const Rows& fileOrder) {
  std::vector<EibiItem> equal(fileOrder.size(), *static_cast<const EibiItem*>(fileOrder.front()));
  Rows rows;
  for (EibiItem& item : equal) rows.push_back(&item);
  for (uint32_t column = 0; column < kEibiColumns; ++column) {
    CompareSorts("all keys equal", static_cast<EibiColumn>(column), rows, ShownZone{});
  }
  equal.back().frequency -= 1;  // not in order any more: the equal keys have to be split
  CompareSorts("all keys equal but one", EibiColumn::kFrequency, rows, ShownZone{});
}

void BenchOn(const std::string& text) {
  const ScheduleFolder folder(text);
  const auto items = LoadEibi(folder.Path());
  if (items->Count() == 0) return;
  BenchLoad(folder.Path(), text, items->Count());
  BenchFilters(*items);
  const Rows rows(items->Entries(), items->Entries() + items->Count());
  for (uint32_t column = 0; column < kEibiColumns; ++column) {
    BenchShapes(static_cast<EibiColumn>(column), rows, ShownZone{});
  }
  BenchShapes(EibiColumn::kStart, rows, ShownZone{false, 7200});
  BenchAllEqual(rows);
}

}  // namespace

void BenchSchedule(const ScheduleText& schedule) {
  BenchOn(schedule.Given());
  BenchOn(schedule.Largest());
}
