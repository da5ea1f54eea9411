#include "fuzz/Fuzz.h"
#include "schedule/DayTime.h"
#include "schedule/HfccDatabase.h"
#include "tests/schedule/ArchiveMaker.h"

// The five members of a season, cut from the input at its zeros.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const TemporaryFolder folder;
  static const std::string path = folder.File("a26all00.zip");
  std::string_view rest = Input(data, size).Rest();
  std::vector<ZipMemberSource> members;
  for (const char* name : {"admin.txt", "broadcas.txt", "site.txt", "fmorg.txt", "a26all.txt"}) {
    const size_t end = std::min(rest.find('\0'), rest.size());
    members.push_back({name, std::string(rest.substr(0, end)), 0});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  REQUIRE(WriteFileBytes(path, MakeZip(members)));
  HfccDatabase database;
  REQUIRE(database.LoadHfcc(path.c_str()) == HfccLoad::kRead);
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
  return 0;
}
