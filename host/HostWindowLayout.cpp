// Where things are in the host's window and how they are drawn.
#include <algorithm>

#include "host/HostControls.h"
#include "host/HostWindow.h"

namespace {

constexpr size_t kRetuneLabelAt = 1;  // in the list of labels
constexpr char kRetuneLabel[] = "Tune the receiver to";
constexpr int kSourceRows = 4;
constexpr const char* kSourceLabels[kSourceRows] = {"Source", "Rate in Hz", "Channels", "Samples"};
constexpr int kSourceIds[kSourceRows][2] = {{Control::kSourceOff, Control::kSourceNoise},
                                            {Control::kRate, Control::kLastRate},
                                            {Control::kMono, Control::kStereo},
                                            {Control::kInteger, Control::kFloat}};

std::string FileNameOf(const std::string& path) {
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace

int HostWindow::LeftWidth() const {
  const int label = theme_.TextWidth("Rate in Hz", theme_.Font()) + theme_.Scale(12);
  return label + 4 * (theme_.TextWidth("48000", theme_.Font()) + theme_.Scale(16));
}

SIZE HostWindow::SmallestClient() const {
  const int rows = theme_.FieldHeight() + theme_.Scale(8);
  return {LeftWidth() + 3 * Margin() + theme_.Scale(400), HeaderHeight() + rows * (kSourceRows + 6) + Margin()};
}

// Buttons of one row share its width.
void HostWindow::PlaceRow(int firstId, int lastId, int left, int top, int width) {
  const int count = lastId - firstId + 1;
  const int gap = theme_.Scale(4);
  for (const Button& button : buttons_) {
    if (button.id < firstId || button.id > lastId) continue;
    const int at = button.id - firstId;
    const int from = left + MulDiv(width + gap, at, count);
    const int to = left + MulDiv(width + gap, at + 1, count) - gap;
    MoveWindow(button.window, from, top, to - from, theme_.FieldHeight(), TRUE);
  }
}

void HostWindow::Layout() {
  RECT client;
  GetClientRect(window_, &client);
  labels_.clear();
  const int field = theme_.FieldHeight(), gap = theme_.Scale(8), margin = Margin();
  const auto label = [&](int left, int top, int width, const char* text, bool bold) {
    labels_.push_back({{left, top, left + width, top + field}, text, bold});
  };

  // Header, at the right: Tune the receiver to [ field ] kHz [Retune]
  const int button = theme_.TextWidth("Retune", theme_.Font()) + theme_.Scale(24);
  const int unit = theme_.TextWidth("kHz", theme_.Font()) + gap;
  const int headerMiddle = (HeaderHeight() - field) / 2;
  int right = client.right - margin;
  PlaceRow(Control::kRetune, Control::kRetune, right - button, headerMiddle, button);
  right -= button + gap;
  label(right - unit + gap / 2, headerMiddle, unit, "kHz", false);
  right -= unit;
  const int fieldWidth = theme_.Scale(110);
  const int ask = theme_.TextWidth(kRetuneLabel, theme_.Font());
  label(right - fieldWidth - gap - ask, headerMiddle, ask + gap, kRetuneLabel, false);
  fieldFrame_ = {right - fieldWidth, headerMiddle, right, headerMiddle + field};
  MoveWindow(field_, fieldFrame_.left + gap, headerMiddle + theme_.Scale(6), fieldWidth - 2 * gap, theme_.TextHeight(),
             TRUE);

  // Left column from below: the audio source, then the instances in what is left.
  const int left = margin, width = LeftWidth(), top = HeaderHeight() + gap;
  const int caption = theme_.TextWidth(kSourceLabels[1], theme_.Font()) + theme_.Scale(12);
  const int audioTop = client.bottom - margin - kSourceRows * field - (kSourceRows - 1) * gap;
  for (int row = 0; row < kSourceRows; ++row) {
    const int y = audioTop + row * (field + gap);
    label(left, y, caption, kSourceLabels[row], false);
    PlaceRow(kSourceIds[row][0], kSourceIds[row][1], left + caption, y, width - caption);
  }
  label(left, audioTop - field - gap / 2, width, "Audio source", true);
  label(left, top, width, "Instances", true);
  const int buttonsTop = audioTop - field - gap / 2 - margin - field;
  PlaceRow(Control::kStart, Control::kCloseAll, left, buttonsTop, width);
  listFrame_ = {left, top + field + gap / 2, left + width, std::max(top + field + gap / 2, buttonsTop - gap)};
  MoveWindow(list_, listFrame_.left + 2, listFrame_.top + 2, width - 4, listFrame_.bottom - listFrame_.top - 4, TRUE);

  // Right column: the log.
  const int logLeft = left + width + margin, logWidth = client.right - margin - logLeft;
  const int pair = 2 * (theme_.TextWidth("Clear", theme_.Font()) + theme_.Scale(24));
  label(logLeft, top, logWidth - pair, "Calls and notifications", true);
  PlaceRow(Control::kCopy, Control::kClear, logLeft + logWidth - pair, top, pair);
  const int logTop = top + field + gap / 2;
  MoveWindow(log_.Window(), logLeft, logTop, logWidth, client.bottom - margin - logTop, TRUE);
  InvalidateRect(window_, nullptr, FALSE);
}

void HostWindow::Paint() {
  const BufferedPaint paint(window_);
  theme_.Fill(paint.Dc(), paint.Area(), theme_.colours.surface);
  PaintHeader(paint.Dc());
  PaintLabels(paint.Dc());
}

// 9420 kHz  AM
// Marlux 3 (marlux3.dll), set by instance 1
void HostWindow::PaintHeader(HDC dc) const {
  const auto& colours = theme_.colours;
  RECT area;
  GetClientRect(window_, &area);
  area.bottom = HeaderHeight();
  theme_.Fill(dc, area, colours.field);
  theme_.Fill(dc, {area.left, area.bottom - 1, area.right, area.bottom}, colours.line);

  const Receiver& receiver = session_.State();
  const int lineHeight = theme_.TextHeight() * 3 + theme_.Scale(4);
  RECT cell = {Margin(), theme_.Scale(8), labels_.empty() ? area.right : labels_[kRetuneLabelAt].area.left - Margin(),
               theme_.Scale(8) + lineHeight};
  const auto write = [&](const std::string& text, HFONT font, COLORREF colour, int gap) {
    theme_.Write(dc, cell, text, font, colour);
    cell.left = std::min<LONG>(cell.right, cell.left + theme_.TextWidth(text, font) + theme_.Scale(gap));
  };
  write(KilohertzText(receiver.hz), theme_.Display(), colours.text, 8);
  write("kHz", theme_.Display(), colours.secondary, 32);
  write(ModeText(receiver.mode), theme_.Display(), colours.accent, 0);

  std::string plugin = "No plug-in loaded";
  if (session_.IsLoaded()) plugin = session_.PluginName() + " (" + FileNameOf(session_.ModulePath()) + ")";
  if (receiver.setBy) plugin += Text(", tuned by instance %u", receiver.setBy);
  const RECT below = {Margin(), cell.bottom, cell.right, cell.bottom + theme_.RowHeight() + theme_.Scale(4)};
  theme_.Write(dc, below, plugin, theme_.Font(), colours.secondary);
}

void HostWindow::PaintLabels(HDC dc) const {
  const auto& colours = theme_.colours;
  for (const Label& label : labels_) {
    theme_.Write(dc, label.area, label.text, label.bold ? theme_.Bold() : theme_.Font(), colours.text);
  }
  const HWND focus = GetFocus();
  theme_.Box(dc, fieldFrame_, colours.field,
             badField_         ? colours.error
             : focus == field_ ? colours.accent
                               : colours.line);
  theme_.Box(dc, listFrame_, colours.field, focus == list_ ? colours.accent : colours.line);
}

void HostWindow::DrawItem(const DRAWITEMSTRUCT& item) const {
  if (item.CtlType == ODT_LISTBOX) return DrawInstance(item);
  for (const Button& button : buttons_) {
    if (button.window != item.hwndItem) continue;
    const auto has = [&](UINT state) { return (item.itemState & state) != 0; };
    theme_.Button(item.hDC, item.rcItem, button.text,
                  {has(ODS_SELECTED), has(ODS_FOCUS), has(ODS_DISABLED), IsChosen(button.id)});
  }
}

void HostWindow::DrawInstance(const DRAWITEMSTRUCT& item) const {
  const auto& colours = theme_.colours;
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  theme_.Fill(item.hDC, item.rcItem, chosen ? colours.accent : colours.field);
  if (item.itemID >= session_.Instances().size()) return;
  const Instance& instance = session_.Instances()[item.itemID];
  RECT cell = item.rcItem;
  InflateRect(&cell, -theme_.Scale(8), 0);
  theme_.Write(item.hDC, cell, Text("Instance %u", instance.handle), theme_.Font(),
               chosen ? colours.onAccent : colours.text);
  theme_.Write(item.hDC, cell, instance.value ? Text("0x%08X", instance.value) : "starting", theme_.Font(),
               chosen ? colours.onAccent : colours.secondary, DT_RIGHT);
}
