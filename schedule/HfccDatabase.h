// Marlux 3. One season of the HFCC schedule with the tables that its codes refer to, read from an archive.
//
//   HfccDatabase database;
//   const HfccLoad result = database.LoadHfcc("...\\a26all00.zip");
//   if (result != HfccLoad::kRead) ShowMessage(HfccLoadText(result));
//   for (uint32_t i = 0; i < database.Items().Count(); ++i) Show(database.LocationName(*database.Items().Get(i)));
#pragma once

#include "foundation/TmyString.h"
#include "foundation/TmyTypeList.h"
#include "schedule/ColumnTable.h"
#include "schedule/FccItem.h"

namespace zlib {
class CGZip;
}

enum class HfccLoad {
  kRead,  // the list may still be empty: members were missing or could not be unzipped
  kNotOpened,
  kTooFewFiles,
};
[[nodiscard]] const char* HfccLoadText(HfccLoad result) noexcept;  // for a message; "" for kRead

class HfccDatabase {
 public:
  HfccDatabase() = default;
  HfccDatabase(const HfccDatabase&) = delete;
  HfccDatabase& operator=(const HfccDatabase&) = delete;

  // Replaces what was there: all records of before are gone, whatever the result. The schedule is the member whose name
  // begins as the archive's does, in the first six characters, case and folder aside; the tables are "admin.txt",
  // "broadcas.txt", "site.txt" and "fmorg.txt", exactly. Without one of the five, or with an empty one, there are no
  // records.
  HfccLoad LoadHfcc(const TmyString& archivePath);
  void Clear() noexcept;

  // One for each row of the schedule, in its order.
  [[nodiscard]] TmyTypeList<FccItem>& Items() noexcept { return items_; }
  [[nodiscard]] const TmyTypeList<FccItem>& Items() const noexcept { return items_; }

  // The code in column 0, sorted by it; names in English, French and Spanish in 1 to 3.
  [[nodiscard]] const ColumnTable& Administrations() const noexcept { return administrations_; }

  // The name that the table has for a record's code, the code itself when it has none; never null.
  [[nodiscard]] const char* LocationName(const FccItem& item) const noexcept;
  [[nodiscard]] const char* AdministrationName(const FccItem& item) const noexcept;
  [[nodiscard]] const char* BroadcasterName(const FccItem& item) const noexcept;
  [[nodiscard]] const char* OrganisationName(const FccItem& item) const noexcept;

 private:
  HfccLoad LoadArchive(const TmyString& archivePath);
  void LoadMembers(zlib::CGZip& archive, int32_t count, std::string_view season);
  void LoadMember(const char* name, std::string_view season, const char* data, uint32_t size);
  [[nodiscard]] bool IsComplete() const noexcept;
  void MakeItems();
  void FindCodes(FccItem& item) const noexcept;

  ColumnTable administrations_;
  ColumnTable broadcasters_;
  ColumnTable organisations_;
  ColumnTable sites_;
  ColumnTable schedule_;
  TmyTypeList<FccItem> items_;  // they point into the tables
};
