#include "toolkit/ClipboardText.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kMaximum = 4096;

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND window) noexcept : open_(OpenClipboard(window) != FALSE) {}
  ~OpenedClipboard() {
    if (open_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  [[nodiscard]] bool IsOpen() const noexcept { return open_; }

 private:
  bool open_;
};

}  // namespace

TmyString ClipboardText(HWND window) {
  const OpenedClipboard clipboard(window);
  const HANDLE data = clipboard.IsOpen() ? GetClipboardData(CF_TEXT) : nullptr;
  const auto* chars = data ? static_cast<const char*>(GlobalLock(data)) : nullptr;
  if (!chars) return {};
  // Other programs need not end their text with a zero.
  const size_t room = std::min<size_t>(GlobalSize(data), kMaximum);
  TmyString text(chars, static_cast<uint32_t>(strnlen(chars, room)));
  GlobalUnlock(data);
  return text;
}

bool SetClipboardText(HWND window, const TmyString& text) {
  const OpenedClipboard clipboard(window);
  if (!clipboard.IsOpen() || !EmptyClipboard()) return false;
  const size_t size = text.Length() + 1;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  void* chars = memory ? GlobalLock(memory) : nullptr;
  if (chars) {
    std::memcpy(chars, text.Chars(), size);
    GlobalUnlock(memory);
    if (SetClipboardData(CF_TEXT, memory)) return true;  // the clipboard owns the memory now
  }
  GlobalFree(memory);
  return false;
}
