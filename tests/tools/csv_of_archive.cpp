// Writes what the HFCC grid shows of an archive, all fields, as the export command does: csv-of-archive ARCHIVE.ZIP
// OUT.CSV
#include <cstdio>
#include <vector>

#include "app/FccGrid.h"
#include "app/GridExport.h"

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  auto* window = new TmyComponent("", WS_POPUP, 0, 0, 0, 300, 200, nullptr);  // deleted by its window
  FccGrid grid(*window);
  if (grid.Load(argv[1]) != HfccLoad::kRead) return 1;
  std::vector<uint32_t> all;
  for (const FccColumn& column : FccColumns()) all.push_back(static_cast<uint32_t>(column.field));
  grid.SetFields(all.data(), static_cast<uint32_t>(all.size()));
  grid.Refresh(FilterRecord{}, {true, 0}, false);
  const DWORD error = WriteCsv(grid, argv[2]);
  std::printf("%u rows\n", grid.ShownCount());
  window->Destroy();
  return error == ERROR_SUCCESS ? 0 : 1;
}
