#include "foundation/TmyObject.h"

namespace {
uint32_t sharedStamp = 0;
}

TmyObject::TmyObject() noexcept : stamp_(sharedStamp) {}

TmyObject::~TmyObject() = default;

void TmyObject::SetTag(uint32_t tag) noexcept {
  tag_ = tag;
}

void TmyObject::SetSharedStamp(uint32_t stamp) noexcept {
  sharedStamp = stamp;
}
