// Marlux 3. What the gallery shows: a sample of each control, made anew for each of its states.
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

// How a control can look, a column of the gallery each.
enum State : unsigned { kNormal, kHot, kPressed, kFocused, kDisabled, kStates };

struct Sample {
  const char* name = nullptr;
  void (*make)(SampleCell& cell) = nullptr;  // fills the cell, which has its size
  unsigned states = 0;                       // a bit each: the control has it and looks different in it
  POINT mouse = {50, 50};                    // where hot and pressed are to be seen, in per cent of the cell
};

[[nodiscard]] std::span<const Sample> SmallSamples();  // as high as a field
[[nodiscard]] std::span<const Sample> LargeSamples();
