#include <deque>

#include "foundation/TmyStream.h"
#include "foundation/TmyStringList.h"
#include "fuzz/Fuzz.h"

namespace {

void* Item(uint32_t number) {
  return reinterpret_cast<void*>(uintptr_t{number});
}

struct Lists {
  static constexpr uint32_t kMost = 40;
  TmyList list{0, kMost};
  std::vector<void*> model;
  TmyStringList texts;
  std::vector<std::string> textModel;
  TmyStream stream{1, 300};
  std::deque<uint8_t> streamModel;

  void OnList(uint8_t operation, uint8_t i, uint8_t j) {
    if (operation == 0 && model.size() < kMost) model.insert(model.begin() + std::min<int>(i, Size()), Item(j));
    if (operation == 0) list.Insert(Item(j), i);
    if (operation == 1) REQUIRE(list.Delete(i) == (i < model.size() ? model[i] : nullptr));
    if (operation == 1 && i < model.size()) model.erase(model.begin() + i);
    if (operation == 2) list.Exchange(i, j);
    if (operation == 2 && i < model.size() && j < model.size()) std::swap(model[i], model[j]);
    REQUIRE(list.Get(i) == (i < model.size() ? model[i] : nullptr));
    const auto last = std::find(model.rbegin(), model.rend(), Item(j));
    REQUIRE(list.IndexOf(Item(j)) == (last == model.rend() ? -1 : model.rend() - last - 1));
    REQUIRE(list.Count() == model.size() && std::equal(model.begin(), model.end(), list.Entries()));
  }

  // Kept in order: what belongs where is asked of the list itself.
  void OnTexts(uint8_t operation, uint8_t i, const std::string& text) {
    const auto place = std::lower_bound(textModel.begin(), textModel.end(), text);
    const TmyString ours{std::string_view(text)};
    REQUIRE(texts.InsertPosition(ours) == static_cast<uint32_t>(place - textModel.begin()));
    if (operation == 3) texts.Insert(ours, texts.InsertPosition(ours)), textModel.insert(place, text);
    if (operation == 4) texts.Delete(i);
    if (operation == 4 && i < textModel.size()) textModel.erase(textModel.begin() + i);
    const int32_t found = texts.Find(ours);
    if (found >= 0)
      REQUIRE(textModel[static_cast<size_t>(found)].starts_with(text) ||
              text.starts_with(textModel[static_cast<size_t>(found)]));
    if (found < 0) REQUIRE(std::find(textModel.begin(), textModel.end(), text) == textModel.end());
    REQUIRE(texts.Count() == textModel.size());
    for (uint32_t k = 0; k < texts.Count(); ++k) REQUIRE(texts.Get(k).View() == textModel[k]);
  }

  void OnStream(uint8_t operation, uint8_t count) {
    std::vector<uint8_t> bytes(count, operation);
    if (operation == 5) {
      const uint32_t taken = stream.Write(bytes.data(), count);
      REQUIRE(taken == std::min<size_t>(count, stream.Maximum() - streamModel.size()));
      streamModel.insert(streamModel.end(), bytes.begin(), bytes.begin() + static_cast<int>(taken));
    } else {
      const uint32_t expected = count <= streamModel.size() ? count : 0;
      REQUIRE(stream.Read(bytes.data(), count, operation == 6) == expected);
      REQUIRE(std::equal(bytes.begin(), bytes.begin() + static_cast<int>(expected), streamModel.begin()));
      if (operation == 6) streamModel.erase(streamModel.begin(), streamModel.begin() + static_cast<int>(expected));
    }
    REQUIRE(stream.Size() == streamModel.size());
  }

  [[nodiscard]] int Size() const { return static_cast<int>(model.size()); }
};

}  // namespace

void Try(Input& input) {
  Lists lists;
  while (!input.IsEmpty()) {
    const uint8_t operation = input.Take<uint8_t>() % 8, i = input.Take<uint8_t>();
    if (operation < 3) lists.OnList(operation, i, input.Take<uint8_t>());
    if (operation == 3 || operation == 4) lists.OnTexts(operation, i, input.TakeText(i % 8));
    if (operation >= 5) lists.OnStream(operation, i);
  }
}
