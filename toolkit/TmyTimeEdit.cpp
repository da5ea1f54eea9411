#include "toolkit/TmyTimeEdit.h"

#include <algorithm>

#include "toolkit/ClipboardText.h"
#include "toolkit/ListKeys.h"

using namespace TimeText;

namespace {
constexpr int kFieldWidth = 3;  // two digits and a colon
}

TmyTimeEdit::TmyTimeEdit(TmyComponent& parent, Align align) : TmyIntEdit(parent, 0, kLast, align) {
  SetMaximumLength(kLength);
  SetValue(0);  // in our own form
}

std::optional<int64_t> TmyTimeEdit::ValueOf(std::string_view text) const {
  const std::optional<int32_t> seconds = ParseTime(text);
  if (!seconds) return std::nullopt;
  return *seconds;
}

TmyString TmyTimeEdit::TextOf(int64_t value) const {
  return FormatTime(static_cast<int32_t>(std::clamp<int64_t>(value, 0, kLast)));
}

Line TmyTimeEdit::LineWithoutSelection() const {
  const Selection selection = Selected();
  Line line = LineOf(Seconds(), selection.begin);
  Clear(line, selection.begin, selection.end);
  return line;
}

void TmyTimeEdit::SetLine(const Line& line) {
  const bool changes = Text() != line.text;
  ExchangeText(line.text, {line.caret, line.caret});
  if (changes) RaiseChanged();
}

void TmyTimeEdit::ClearSelection() {
  SetLine(LineWithoutSelection());
}

void TmyTimeEdit::SelectField(int field) {
  Select(field * kFieldWidth, field * kFieldWidth + 2);
}

// From a selection of more than one field to its end, as the caret does elsewhere.
void TmyTimeEdit::GoToField(int direction) {
  const Selection selection = Selected();
  const int first = FieldAt(selection.begin);
  const int last = FieldAt(std::max(selection.begin, selection.end - 1));
  const int from = direction > 0 ? last : first;
  SelectField(first == last ? std::clamp(from + direction, 0, kFields - 1) : from);
}

void TmyTimeEdit::Step(int steps, bool page) {
  const int field = page ? 0 : FieldAt(Selected().begin);
  const TmyString next = FormatTime(Stepped(Seconds(), field, steps));
  const bool changes = Text() != next;
  ExchangeText(next, {field * kFieldWidth, field * kFieldWidth + 2});
  if (changes) RaiseChanged();
}

// What would take characters out of the text makes them zeros.
LRESULT TmyTimeEdit::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CUT || message == WM_CLEAR) {
    const Selection selection = Selected();
    if (selection.begin == selection.end) return 0;
    if (message == WM_CUT) SendMessageA(Handle(), WM_COPY, 0, 0);
    ClearSelection();
    return 0;
  }
  return TmyIntEdit::WndProc(message, wParam, lParam);
}

bool TmyTimeEdit::KeyDown(uint32_t key, LPARAM flags) {
  const bool isPlain = !ListKeys::IsWithAlt(flags) && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_CONTROL) >= 0;
  if (isPlain && (key == VK_LEFT || key == VK_RIGHT)) {
    GoToField(key == VK_RIGHT ? 1 : -1);
    return true;
  }
  if (key == VK_DELETE && GetKeyState(VK_SHIFT) < 0) {
    SendMessageA(Handle(), WM_CUT, 0, 0);
    return true;
  }
  if (key != VK_DELETE || !isPlain) return key == VK_DELETE || TmyIntEdit::KeyDown(key, flags);
  const Selection selection = Selected();
  Line line = LineWithoutSelection();
  if (selection.begin == selection.end) ClearAhead(line);
  SetLine(line);
  return true;
}

void TmyTimeEdit::Char(char& character, LPARAM flags) {
  TmyEdit::Char(character, flags);
  const bool isBackspace = character == '\b';
  if (static_cast<uint8_t>(character) < ' ' && !isBackspace) return;  // copy, cut, paste, undo
  const char typed = character;
  character = 0;  // all text is set here
  const Selection selection = Selected();
  Line line = LineWithoutSelection();
  if (isBackspace) {
    if (selection.begin == selection.end) ClearBack(line);
  } else if (typed == ':') {
    line = LineOf(Seconds(), selection.end);
    TypeColon(line);
  } else if (!TypeDigit(line, typed)) {
    return;
  }
  SetLine(line);
}

bool TmyTimeEdit::PasteText(const TmyString& text) {
  const std::optional<int32_t> seconds = ParseTime(text.View());
  if (seconds) SetLine(LineOf(*seconds, kLength));
  return true;
}
