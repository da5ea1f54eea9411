// Marlux 3. The grid's context menu, for the row that was clicked. Its fields stand in the order of the items.
#pragma once

#include "toolkit/TmyMenu.h"

struct GridMenu {
  explicit GridMenu(TmyMenu& menu);

  TmyMenuItem& showDetails;
  TmyMenuItem& tune;
  TmyMenuItem& record;
  TmyMenuItem& schedule;
};
