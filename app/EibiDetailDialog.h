// Marlux 3. The details of an EiBi broadcast.
#pragma once

#include "app/DetailDialog.h"
#include "app/EibiColumns.h"

class EibiDetailDialog : public DetailDialog {
 public:
  EibiDetailDialog(TmyComponent& owner, const EibiItem& item, const ShownZone& zone);  // invisible until Show(true)
};
