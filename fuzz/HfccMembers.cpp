#include "fuzz/Fuzz.h"
#include "schedule/DayTime.h"
#include "schedule/HfccDatabase.h"
#include "tests/schedule/ArchiveMaker.h"

// The five members of a season, cut from the input at its zeros.
void Try(Input& input) {
  std::string_view rest = input.Rest();
  const size_t size = rest.size();
  std::vector<ZipMemberSource> members;
  for (const char* name : {"admin.txt", "broadcas.txt", "site.txt", "fmorg.txt", "a26all.txt"}) {
    const size_t end = std::min(rest.find('\0'), rest.size());
    members.push_back({name, std::string(rest.substr(0, end)), 0});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  HfccDatabase database;
  REQUIRE(database.LoadHfcc(FileOf("a26all00.zip", MakeZip(members)).c_str()) == HfccLoad::kRead);
  for (uint32_t i = 0; i < database.Items().Count(); ++i) {
    const FccItem& item = *database.Items().Get(i);
    REQUIRE(item.dayMask <= kAllDaysMask && IsText(item.startText) && IsText(item.endDateText));
    size_t length = 0;
    for (const char* text : {database.LocationName(item), database.AdministrationName(item),
                             database.BroadcasterName(item), database.OrganisationName(item), item.latitude,
                             item.longitude, item.notes, item.cirafText, item.daysText, item.modulationName}) {
      length += std::strlen(text);
    }
    REQUIRE(length <= size * 10 + 500);
  }
}
