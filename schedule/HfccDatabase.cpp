#include "schedule/HfccDatabase.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "schedule/CGZip.h"

namespace {

constexpr int32_t kFewestMembers = 5;
constexpr size_t kSeasonLength = 6;  // "a26all"
constexpr uint32_t kNameRoom = 260;
constexpr uint32_t kLeastCost = 64U << 10;  // bytes, of any member: to open and to cut it takes time, too

constexpr char kAdministrationMember[] = "admin.txt";
constexpr char kBroadcasterMember[] = "broadcas.txt";
constexpr char kSiteMember[] = "site.txt";
constexpr char kOrganisationMember[] = "fmorg.txt";

constexpr uint32_t kAdministrationStarts[] = {0, 4, 55, 106};
constexpr uint32_t kBroadcasterStarts[] = {0, 4};
constexpr uint32_t kSiteStarts[] = {0, 4, 35, 39, 45};
constexpr uint32_t kOrganisationStarts[] = {0, 4};
constexpr uint32_t kScheduleStarts[kHfccColumns] = {0,  6,   11,  16,  47,  52,  56,  64,  72,  80,  87, 94,
                                                    96, 102, 113, 117, 121, 125, 131, 133, 139, 145, 151};
constexpr uint32_t kNameColumn = 1;
constexpr uint32_t kLatitudeColumn = 3;
constexpr uint32_t kLongitudeColumn = 4;

// The first characters of a file's name without folder and ending, in lower case.
TmyString SeasonOf(std::string_view path) {
  const size_t separator = path.find_last_of("\\/");
  if (separator != std::string_view::npos) path.remove_prefix(separator + 1);
  const std::string_view base = path.substr(0, path.rfind('.'));
  return TmyString(base.substr(0, kSeasonLength)).Lower();
}

bool IsCodeTable(std::string_view name) noexcept {
  return name == kAdministrationMember || name == kBroadcasterMember || name == kSiteMember ||
         name == kOrganisationMember;
}

template <size_t kColumns>
void Load(ColumnTable& table, const char* data, uint32_t size, const uint32_t (&starts)[kColumns], bool sorted) {
  table.Load(data, size, starts, kColumns, 0, sorted);
}

int32_t Find(const ColumnTable& table, const char* code) noexcept {
  return *code ? table.FindCode(code, 0, table.Rows()) : -1;
}

const char* NameOrCode(const ColumnTable& table, int32_t row, const char* code) noexcept {
  const char* name = table.Text(row, kNameColumn);
  return *name ? name : code;
}

}  // namespace

const char* HfccLoadText(HfccLoad result) noexcept {
  switch (result) {
    case HfccLoad::kNotOpened:
      return "Unable to open the archive";
    case HfccLoad::kTooFewFiles:
      return "Not enough files in the archive";
    case HfccLoad::kRead:
      break;
  }
  return "";
}

void HfccDatabase::Clear() noexcept {
  items_.Clear();
  for (ColumnTable* table : {&administrations_, &broadcasters_, &organisations_, &sites_, &schedule_}) table->Clear();
}

// An archive for which memory is too short is like one that cannot be opened.
HfccLoad HfccDatabase::LoadHfcc(const TmyString& archivePath) {
  Clear();
  try {
    return LoadArchive(archivePath);
  } catch (const std::bad_alloc&) {
    Clear();
    return HfccLoad::kNotOpened;
  }
}

HfccLoad HfccDatabase::LoadArchive(const TmyString& archivePath) {
  {
    zlib::CGZip archive;
    if (!archive.Open(archivePath.Chars())) return HfccLoad::kNotOpened;
    const int32_t count = archive.GetCount();
    if (count < kFewestMembers) return HfccLoad::kTooFewFiles;
    LoadMembers(archive, count, SeasonOf(archivePath.View()).View());
  }
  if (IsComplete()) MakeItems();
  return HfccLoad::kRead;
}

// Only members that are wanted are unzipped: an archive has others, and they may be the larger part of it. All together
// stay below what a single one may have, or an archive that repeats one name would keep the program busy for hours.
void HfccDatabase::LoadMembers(zlib::CGZip& archive, int32_t count, std::string_view season) {
  uint32_t budget = zlib::CZipper::kMostBytes;
  for (int32_t i = 0; i < count; ++i) {
    char name[kNameRoom];
    const char* data = nullptr;
    uint32_t size = 0;
    if (!archive.GetFile(i, nullptr, &size, nullptr, name, sizeof name)) continue;
    if (!IsCodeTable(name) && SeasonOf(name).View() != season) continue;
    const uint32_t cost = std::max(size, kLeastCost);
    if (cost > budget) continue;
    budget -= cost;
    if (archive.GetFile(i, &data, &size, nullptr, nullptr, 0)) LoadMember(name, season, data, size);
  }
}

void HfccDatabase::LoadMember(const char* name, std::string_view season, const char* data, uint32_t size) {
  const std::string_view view(name);
  if (view == kAdministrationMember) Load(administrations_, data, size, kAdministrationStarts, true);
  if (view == kBroadcasterMember) Load(broadcasters_, data, size, kBroadcasterStarts, true);
  if (view == kSiteMember) Load(sites_, data, size, kSiteStarts, true);
  if (view == kOrganisationMember) Load(organisations_, data, size, kOrganisationStarts, true);
  if (SeasonOf(view).View() == season) Load(schedule_, data, size, kScheduleStarts, false);
}

bool HfccDatabase::IsComplete() const noexcept {
  for (const ColumnTable* table : {&administrations_, &broadcasters_, &organisations_, &sites_, &schedule_}) {
    if (table->Rows() == 0) return false;
  }
  return true;
}

void HfccDatabase::MakeItems() {
  for (uint32_t row = 0; row < schedule_.Rows(); ++row) {
    auto item = std::make_unique<FccItem>();
    item->SetCells(schedule_.Row(row));
    FindCodes(*item);
    if (!items_.Add(std::move(item))) throw std::bad_alloc();
  }
}

void HfccDatabase::FindCodes(FccItem& item) const noexcept {
  item.site = Find(sites_, item.siteCode);
  item.administration = Find(administrations_, item.administrationCode);
  item.broadcaster = Find(broadcasters_, item.broadcasterCode);
  item.organisation = Find(organisations_, item.organisationCode);
  item.longitude = sites_.Text(item.site, kLongitudeColumn);
  item.latitude = sites_.Text(item.site, kLatitudeColumn);
}

const char* HfccDatabase::LocationName(const FccItem& item) const noexcept {
  return NameOrCode(sites_, item.site, item.siteCode);
}

const char* HfccDatabase::AdministrationName(const FccItem& item) const noexcept {
  return NameOrCode(administrations_, item.administration, item.administrationCode);
}

const char* HfccDatabase::BroadcasterName(const FccItem& item) const noexcept {
  return NameOrCode(broadcasters_, item.broadcaster, item.broadcasterCode);
}

const char* HfccDatabase::OrganisationName(const FccItem& item) const noexcept {
  return NameOrCode(organisations_, item.organisation, item.organisationCode);
}
