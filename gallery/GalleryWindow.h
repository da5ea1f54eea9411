// Marlux 3. The gallery's window, of three pages: small and large controls, a row each with a column for each state,
// and what opens over other windows. Normal and disabled samples are live, the rest are pictures, taken when the
// page comes up. The caption is kCaption as soon as they are there.
#pragma once

#include <string>
#include <vector>

#include "gallery/OpenedSamples.h"
#include "gallery/Picture.h"
#include "toolkit/TmyMenu.h"

class GalleryWindow : public TmyComponent {
 public:
  static constexpr char kCaption[] = "Toolkit gallery";
  enum class Page { kControls, kPanels, kOpened };

  // Appends a line to `faults` (which outlives the window) for each cell that shows nothing, or no other look than the
  // normal one.
  GalleryWindow(Page page, std::vector<std::string>& faults);

  void Paint(HDC dc) override;
  void Timer(uintptr_t id) override;

 private:
  struct Words {
    RECT place;
    const char* text;
    bool isTitle;
  };
  struct Taken {
    POINT at;
    Picture picture;
    bool needsFrame;
  };

  void AddMenu();
  void ShowControls(TmyMenuItem&) { ShowPage(Page::kControls); }
  void ShowPanels(TmyMenuItem&) { ShowPage(Page::kPanels); }
  void ShowOpened(TmyMenuItem&) { ShowPage(Page::kOpened); }
  void ShowPage(Page page);
  [[nodiscard]] SIZE PageSize() const;
  void FillRows(std::span<const Sample> samples, int height);
  void FillRow(const Sample& sample, const RECT& row);
  void FillOpened();
  SampleCell* AddCell(const RECT& place);
  static void Bring(SampleCell& cell, POINT mouse, State state);
  void Check(const char* sample, State state, const Picture& picture, const Picture& normal);

  TmyMainMenu menu_;
  Page page_ = Page::kControls;
  std::vector<Words> words_;
  std::vector<Taken> pictures_;
  std::vector<SampleCell*> cells_;  // belong to their windows
  std::vector<std::string>& faults_;
};
