// Marlux 3. What a download run works with: the window and its sockets.
#pragma once

#include "foundation/TmyString.h"

enum class DownloadSite { kEibi, kHfcc };

class DownloadDesk {
 public:
  DownloadDesk() noexcept = default;
  DownloadDesk(const DownloadDesk&) = delete;
  DownloadDesk& operator=(const DownloadDesk&) = delete;

  virtual void ShowStatus(const TmyString& line1, const TmyString& line2) = 0;
  // Of the document, in bytes; an expected count of 0 is unknown. Only the lower line changes.
  virtual void ShowProgress(uint32_t received, uint32_t expected, const TmyString& line2) = 0;
  virtual void ShowWorking(bool working) = 0;  // false: the run has ended, or it seemed so
  // In place of the one before, of which nothing is heard any more.
  virtual void Request(DownloadSite site, const TmyString& path) = 0;
  virtual void DropRequest() = 0;

 protected:
  ~DownloadDesk() = default;
};
