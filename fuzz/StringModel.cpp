#include "foundation/TmyString.h"
#include "fuzz/Fuzz.h"

namespace {

int Sign(int number) {
  return (number > 0) - (number < 0);
}

std::string Trimmed(std::string text) {
  const auto isCut = [](char c) { return static_cast<signed char>(c) <= 32; };
  text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isCut));
  while (!text.empty() && isCut(text.back())) text.pop_back();
  return text;
}

std::string Quoted(const std::string& text, char doubled) {
  std::string quoted = "\"";
  for (const char c : text) quoted += std::string(c == doubled ? 2 : 1, c);
  return quoted + "\"";
}

struct Pair {
  TmyString ours;
  std::string model;

  void Append(Pair& other, uint8_t how, Input& input) {
    const auto letter = input.Take<char>();
    if (how % 4 == 0) ours += other.ours, model += std::string(other.model);
    if (how % 4 == 1) ours += letter, model += letter;
    // Only up to a zero. NOLINTNEXTLINE(readability-redundant-string-cstr)
    if (how % 4 == 2) ours += other.ours.Chars(), model += std::string(other.model.c_str());
    const size_t from = std::min<size_t>(how, model.size());
    if (how % 4 == 3) ours.Append(ours.View().substr(from)), model += std::string(model.substr(from));
  }

  void Change(uint8_t operation, uint8_t count, char letter) {
    const size_t cut = std::min<size_t>(count, model.size());
    const bool isInside = count < model.size();
    const auto number = static_cast<uint8_t>(letter);
    if (operation == 0) ours.RemoveLeft(count), model.erase(0, cut);
    if (operation == 1) ours.RemoveRight(count), model.erase(model.size() - cut);
    if (operation == 2) ours.Trim(), model = Trimmed(model);
    if (operation == 3) ours = ours.Quote(letter), model = Quoted(model, letter);
    if (operation == 4) ours = ours.Mid(count, number), model = isInside ? model.substr(count, number) : "";
    if (operation == 5 && (isInside || count >= ours.Capacity())) *ours.WritableAt(count) = letter;
    if (operation == 5 && isInside) model[count] = letter;
    if (operation == 6) ours.Format("%s|%d", ours.Chars(), count);
    // NOLINTNEXTLINE(readability-redundant-string-cstr): only up to a zero
    if (operation == 6) model = std::string(model.c_str()) + "|" + std::to_string(count);
    if (operation != 7) return;
    ours = TmyString::FromDecimal(int64_t{letter} * 1000, count);
    model = std::to_string(std::abs(letter * 1000));
    if (model.size() < count) model.insert(0, count - model.size(), '0');
    if (letter < 0) model.insert(0, 1, '-');
  }
};

}  // namespace

// Three strings that share and change their texts beside three that do not.
void Try(Input& input) {
  Pair pairs[3];
  while (!input.IsEmpty()) {
    Pair& one = pairs[input.Take<uint8_t>() % 3];
    Pair& other = pairs[input.Take<uint8_t>() % 3];
    const auto operation = input.Take<uint8_t>(), count = input.Take<uint8_t>();
    if (operation % 12 < 8) one.Change(operation % 12, count, input.Take<char>());
    if (operation % 12 == 8) one.Append(other, count, input);
    if (operation % 12 == 9) one = other;
    if (operation % 12 == 10) one.model = input.TakeText(count), one.ours = TmyString(one.model);
    if (operation % 12 == 11) one.ours = one.ours + other.ours, one.model += std::string(other.model);
    if (one.model.size() > 2000) one = {};
    for (const Pair& pair : pairs) {
      REQUIRE(pair.ours.View() == pair.model && pair.ours.Chars()[pair.model.size()] == 0);
    }
    const char* const key = other.model.c_str();
    REQUIRE(one.ours.Compare(other.ours) == Sign(one.model.compare(other.model)));
    REQUIRE(one.ours.Find(key, count) == static_cast<int32_t>(one.model.find(key, count)));
    REQUIRE(one.ours.FindChar('a', count) == static_cast<int32_t>(one.model.find('a', count)));
    REQUIRE(one.ours.FilePath().Length() + one.ours.FileName().Length() <= one.model.size());
    REQUIRE(one.ours.Lower().FindNoCase(one.ours.Upper().Chars()) == 0);
  }
}
