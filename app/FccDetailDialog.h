// Marlux 3. The details of an HFCC transmission.
#pragma once

#include "app/DetailDialog.h"
#include "app/ShownZone.h"
#include "schedule/HfccDatabase.h"

class FccDetailDialog : public DetailDialog {
 public:
  // Invisible until Show(true). Codes are shown by the database's names; nothing is kept of either.
  FccDetailDialog(TmyComponent& owner, const FccItem& item, const HfccDatabase& database, const ShownZone& zone);
};
