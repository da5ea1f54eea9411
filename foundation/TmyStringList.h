// Marlux 3. A list of strings that loads text files and renders comma text.
#pragma once

#include <string_view>

#include "foundation/TmyList.h"
#include "foundation/TmyString.h"

class TmyStringList : public TmyList {
 public:
  TmyStringList() noexcept = default;
  TmyStringList(uint32_t initialCount, uint32_t maximumCount) : TmyList(initialCount, maximumCount) {}
  ~TmyStringList() override;

  // Destroys the entry; nothing out of range. Always null.
  void* Delete(uint32_t index) override;
  virtual void Insert(const TmyString& text, uint32_t index);  // a shared copy; beyond the count it appends
  void Add(const TmyString& text) { Insert(text, kAtEnd); }
  [[nodiscard]] const TmyString& Get(uint32_t index) const noexcept;  // a static empty string out of range

  // Replaces the list by the lines of the file. False, with an empty list, when the file is missing, empty or cannot
  // be read whole; nobody else may have it open.
  [[nodiscard]] bool LoadFromFile(const TmyString& path);
  // Appends the lines of a byte block. CR LF, CR and LF each end a line; a terminator at the very end adds no line.
  // The first line that finds no room in the list ends it.
  void SetText(const char* bytes, uint32_t length);
  // Every entry in double quotes, joined with commas. One empty entry gives "\"\"", an empty list the empty string.
  [[nodiscard]] TmyString GetCommaText() const;
  // Binary search in a sorted list; an index or -1. Only the shorter of entry and key is compared, so that a key finds
  // the entries that begin with it, and those that it begins with.
  [[nodiscard]] int32_t Find(const TmyString& text, uint32_t from = 0, uint32_t to = kAtEnd) const noexcept;
  // Where a text belongs in a sorted list: the index of the first entry that is not smaller. Compares whole texts.
  [[nodiscard]] uint32_t InsertPosition(const TmyString& text) const noexcept;

 private:
  using TmyList::Add;
  using TmyList::Insert;  // entries are strings only
};
