// Marlux 3. The gallery's window: a row for each control with a normal and a disabled sample and a picture of the
// normal one as it looked with the keyboard focus. Its caption is kCaption as soon as the pictures are there.
#pragma once

#include <vector>

#include "gallery/Samples.h"
#include "toolkit/GdiHandle.h"

class GalleryWindow : public TmyComponent {
 public:
  static constexpr char kCaption[] = "Toolkit gallery";

  GalleryWindow();

  void Paint(HDC dc) override;
  void Timer(uintptr_t id) override;

 private:
  struct Row {
    const Sample* sample;
    RECT place;          // of the whole row
    SampleCell* normal;  // both belong to their windows
    SampleCell* disabled;
    BitmapHandle focused;  // none: it takes no focus
  };

  int AddRows(std::span<const Sample> samples, int left, int height);  // returns where they end
  SampleCell* AddCell(const Sample& sample, const RECT& row, int column, bool enabled);
  void TakePicture(Row& row);
  void PaintRow(HDC dc, const Row& row) const;

  std::vector<Row> rows_;
};
