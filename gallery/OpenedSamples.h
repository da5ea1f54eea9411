// Marlux 3. What opens over other windows, one at a time, and closes before the next: drop-downs, boxes, menus, tips.
#pragma once

#include <span>

#include "gallery/Picture.h"
#include "gallery/Samples.h"

struct OpenedSample {
  const char* name;
  int column;       // of the page; in a column they stand in this order
  bool needsFrame;  // where the system draws one that the picture does not have
  // Opens it from the cell, as high as a field, takes its picture and closes it.
  Picture (*take)(SampleCell& cell);
};

[[nodiscard]] std::span<const OpenedSample> OpenedSamples();
