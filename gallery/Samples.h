// Marlux 3. What the gallery shows: a sample of each control, made anew for each state.
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "toolkit/TmyPanel.h"

// Holds one sample. Windows belong to themselves, drawn controls to the cell.
class SampleCell : public TmyPanel {
 public:
  explicit SampleCell(TmyComponent& parent) : TmyPanel(parent, WS_VISIBLE | WS_TABSTOP) {}

  template <class Drawn, class... Args>
  Drawn& Draw(Args&&... args) {
    auto control = std::make_unique<Drawn>(*this, std::forward<Args>(args)...);
    Drawn& made = *control;
    drawn_.push_back(std::move(control));
    return made;
  }

 private:
  std::vector<std::unique_ptr<TmyControl>> drawn_;
};

struct Sample {
  const char* name;
  void (*make)(SampleCell& cell);  // fills the cell, which has its size
};

[[nodiscard]] std::span<const Sample> SmallSamples();  // as high as a field
[[nodiscard]] std::span<const Sample> LargeSamples();
