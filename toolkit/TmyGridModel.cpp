#include "toolkit/TmyGridModel.h"

bool TmyGridModel::IsMarked(uint32_t) const {
  return false;
}

bool TmyGridModel::IsHighlighted(uint32_t) const {
  return false;
}

const char* TmyGridModel::EmptyText() const {
  return "";
}
