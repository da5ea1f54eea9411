#include "app/GridMenu.h"

GridMenu::GridMenu(TmyMenu& menu)
    : showDetails(menu.AddItem("Show &details")),
      tune(menu.AddItem("&Tune to this frequency")),
      record(menu.AddItem("Start &recording this station")),
      schedule(menu.AddItem("&Schedule this station")) {}
