#include "app/MainMenu.h"

MainMenu::MainMenu()
    : file_(bar_.AddSubmenu("&File")),
      checkForUpdates(file_.AddItem("&Check for DB updates")),
      hfccDatabases_(file_.AddSubmenu("HFCC &databases")),
      exportItems(file_.AddItem("&Export items to CSV")),
      exit(file_.AddItem("E&xit")),
      options_(bar_.AddSubmenu("&Options")),
      utcTime(options_.AddItem("&UTC time")),
      hfccSettings(options_.AddItem("HFCC &settings")),
      scheduler_(bar_.AddSubmenu("&Scheduler")),
      viewScheduler(scheduler_.AddItem("&View scheduler")),
      newTask(scheduler_.AddItem("&New task")),
      help_(bar_.AddSubmenu("&Help")),
      help(help_.AddItem("&Help")),
      about(help_.AddItem("&About")) {
  file_.EnableSubmenu(hfccDatabases_, false);
}

void MainMenu::ListArchives(const std::vector<TmyString>& archives, const TmyString& current) {
  hfccDatabases_.RemoveAll();
  for (const TmyString& archive : archives) {
    TmyMenuItem& item = hfccDatabases_.AddItem(archive);
    item.Check(archive == current);
  }
  file_.EnableSubmenu(hfccDatabases_, !archives.empty());
}
