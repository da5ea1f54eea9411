#include "foundation/TmyStringList.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

const TmyString kNothing;  // here, for the runtime guards a local static with memory and crashes when there is none

TmyString* CellOf(void* entry) noexcept {
  return static_cast<TmyString*>(entry);
}

// Finds the next of one kind of line end, looking at each byte of the block once however many lines there are.
class LineEndFinder {
 public:
  LineEndFinder(char wanted, const char* end) noexcept : wanted_(wanted), end_(end) {}

  // `from` never goes back. The end of the block when there is none left.
  const char* Next(const char* from) noexcept {
    if (!found_ || found_ < from) {
      const void* at = std::memchr(from, wanted_, static_cast<size_t>(end_ - from));
      found_ = at ? static_cast<const char*>(at) : end_;
    }
    return found_;
  }

 private:
  char wanted_;
  const char* end_;
  const char* found_ = nullptr;
};

}  // namespace

TmyStringList::~TmyStringList() {
  for (uint32_t i = 0; i < Count(); ++i) delete CellOf(Entries()[i]);
}

void* TmyStringList::Delete(uint32_t index) {
  delete CellOf(TakeAt(index));
  return nullptr;
}

void TmyStringList::Insert(const TmyString& text, uint32_t index) {
  if (!MakeRoomForOne()) return;
  auto* cell = new (std::nothrow) TmyString(text);
  if (cell) PlaceAt(cell, index);
}

const TmyString& TmyStringList::Get(uint32_t index) const noexcept {
  return index < Count() ? *static_cast<const TmyString*>(Entries()[index]) : kNothing;
}

void TmyStringList::SetText(const char* bytes, uint32_t length) {
  if (!bytes || length == 0) return;
  const char* const end = bytes + length;
  LineEndFinder carriageReturn('\r', end);
  LineEndFinder lineFeed('\n', end);
  while (bytes != end) {
    const char* stop = std::min(carriageReturn.Next(bytes), lineFeed.Next(bytes));
    const uint32_t before = Count();
    Insert(TmyString(bytes, static_cast<uint32_t>(stop - bytes)), kAtEnd);
    if (stop == end || Count() == before) return;  // no room: the rest need not be looked at
    const bool pair = *stop == '\r' && end - stop > 1 && stop[1] == '\n';
    bytes = stop + (pair ? 2 : 1);
  }
}

TmyString TmyStringList::GetCommaText() const {
  TmyString result;
  for (uint32_t i = 0; i < Count(); ++i) {
    if (i > 0) result += ',';
    result += Get(i).Quote('"');
  }
  return result;
}

int32_t TmyStringList::Find(const TmyString& text, uint32_t from, uint32_t to) const noexcept {
  const uint32_t count = Count();
  if (count == 0) return -1;
  int64_t first = from < count ? from : 0;
  int64_t last = std::min(to, count - 1);
  while (first <= last) {
    const int64_t middle = (first + last) / 2;
    const TmyString& entry = Get(static_cast<uint32_t>(middle));
    const int order = std::memcmp(text.Chars(), entry.Chars(), std::min(entry.Length(), text.Length()));
    if (order == 0) return static_cast<int32_t>(middle);
    (order > 0 ? first : last) = order > 0 ? middle + 1 : middle - 1;
  }
  return -1;
}

uint32_t TmyStringList::InsertPosition(const TmyString& text) const noexcept {
  uint32_t first = 0;
  uint32_t behind = Count();
  while (first < behind) {
    const uint32_t middle = first + (behind - first) / 2;
    if (Get(middle).Compare(text) < 0) {
      first = middle + 1;
    } else {
      behind = middle;
    }
  }
  return first;
}
