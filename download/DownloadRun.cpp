#include "download/DownloadRun.h"

#include <windows.h>

#include "download/IndexPage.h"
#include "foundation/FolderFiles.h"
#include "foundation/LostTexts.h"
#include "foundation/SwapFile.h"
#include "foundation/SystemHandle.h"
#include "foundation/TmyStringList.h"
#include "schedule/EibiReader.h"

namespace {

constexpr char kEibiFile[] = "eibi.txt";
constexpr char kEibiFolder[] = "/dx/";
constexpr char kHfccIndex[] = "/data/index.html";
constexpr char kHfccFolder[] = "/data/";
constexpr uint32_t kListStart = 1024;  // names
constexpr uint32_t kListLimit = 0x40000;
constexpr uint64_t kMostCompared = 256U << 20;  // bytes; a schedule has one or two million

// No path at all when memory is short: a part of one leads elsewhere.
TmyString InPath(const TmyString& folder, const TmyString& name) {
  const TmyString path = folder + "\\" + name;
  return path.Length() == folder.Length() + 1 + name.Length() ? path : TmyString();
}

TmyString CountOf(uint32_t part, uint32_t whole) {
  return TmyString::FromDecimal(part) + "/" + TmyString::FromDecimal(whole);
}

enum class Former { kNothing, kPage, kSchedule, kUnknown };  // kUnknown: it cannot be read now, somebody holds it, say

Former ContentOf(const TmyString& name) {
  TmyFile file(name, GENERIC_READ, OPEN_EXISTING);
  if (!file.IsOpen()) return file.OpenError() == ERROR_FILE_NOT_FOUND ? Former::kNothing : Former::kUnknown;
  if (file.Size() > kMostCompared) return Former::kUnknown;
  std::string content(static_cast<size_t>(file.Size()), '\0');
  const auto size = static_cast<uint32_t>(content.size());
  if (file.ReadSome(content.data(), size) != size) return Former::kUnknown;
  return HoldsEibiBroadcast(content) ? Former::kSchedule : Former::kPage;
}

// Written aside: a copy that breaks off must not take the place of the one that was kept before.
bool Copy(const TmyString& from, const TmyString& to) {
  TmyFile source(from, GENERIC_READ, OPEN_EXISTING);
  SwapFile target(to);
  bool isWritten = source.IsOpen();
  char piece[0x4000];
  for (uint32_t count = 1; isWritten && count > 0;) {
    const std::optional<uint32_t> got = source.ReadSome(piece, sizeof piece);
    count = got.value_or(0);
    isWritten = got && target.Write(piece, count);
  }
  return isWritten && target.Commit();
}

// The disk does not tell a short name from its long one: the name leads to another's file.
bool IsAnothersName(const TmyString& folder, const TmyString& name) {
  WIN32_FIND_DATAA found;
  const FindHandle search(HandleOrNull(FindFirstFileA(InPath(folder, name).Chars(), &found)));
  return search && lstrcmpiA(name.Chars(), found.cFileName) != 0;
}

}  // namespace

DownloadRun::DownloadRun(DownloadDesk& desk, const TmyString& folder)
    : desk_(desk),
      folder_(folder),
      pendingFiles_(kListStart, kListLimit),
      downloadedFiles_(kListStart, kListLimit),
      knownFiles_(kListStart, kListLimit) {}

void DownloadRun::Start() {
  lostTexts_ = LostTexts();
  site_ = DownloadSite::kEibi;
  hasEibi_ = reachedHfcc_ = false;
  desk_.ShowWorking(true);
  Say("Retrieving the EiBi web page...", "");
  desk_.Request(site_, TmyString(kEibiFolder) + kEibiFile);
}

void DownloadRun::StartHfcc() {
  site_ = DownloadSite::kHfcc;
  pendingFiles_.Clear();
  downloadedFiles_.Clear();
  knownFiles_.Clear();
  for (const TmyString& name : FolderFiles(folder_)) {
    if (name.FileExt() != SwapFile::kEnding + 1) knownFiles_.Add(name.RemoveExt());  // half of one is none
  }
  desk_.ShowWorking(true);
  RequestHfcc(kHfccIndex);
}

void DownloadRun::RequestHfcc(const TmyString& path) {
  reachedHfcc_ = false;
  Say(pendingFiles_.Count() == 0 ? TmyString("Retrieving the HFCC web page...")
                                 : "Downloading HFCC " + CountOf(downloadedFiles_.Count() + 1,
                                                                 downloadedFiles_.Count() + pendingFiles_.Count()),
      "");
  desk_.Request(site_, path);
}

void DownloadRun::RequestFirstPending() {
  RequestHfcc(kHfccFolder + pendingFiles_.Get(0));
}

void DownloadRun::Connected() {
  if (site_ == DownloadSite::kEibi) {
    Say("Downloading EiBi database...", "Waiting for EiBi data...");
  } else {
    SayBelow("Waiting for HFCC data...");
  }
}

// In chunks only the rest of the current one is known: the text tells it, the bar does not trust it.
void DownloadRun::Progress(uint32_t received, uint32_t stillExpected, bool isWholeKnown) {
  const TmyString name = site_ == DownloadSite::kEibi ? "Downloaded EiBi " : "Downloaded HFCC ";
  const uint32_t expected = received + stillExpected;
  desk_.ShowProgress(received, isWholeKnown ? expected : 0, name + CountOf(received, expected));
}

void DownloadRun::Finished(const DownloadedDocument& document) {
  if (site_ == DownloadSite::kEibi) {
    EibiFinished(document);
  } else if (pendingFiles_.Count() == 0) {
    IndexFinished(document);
  } else {
    ArchiveFinished(document);
  }
}

// The close that follows goes on with the other site.
void DownloadRun::EibiFinished(const DownloadedDocument& document) {
  isSchedule_ = HoldsEibiBroadcast({reinterpret_cast<const char*>(document.body), document.length});
  hasEibi_ = (isSchedule_ || KeepFormerEibi()) && Save(kEibiFile, document);
  if (hasEibi_) Say("", "EiBi database downloaded.");
}

void DownloadRun::IndexFinished(const DownloadedDocument& document) {
  const std::string_view page(reinterpret_cast<const char*>(document.body), document.length);
  if (!IndexPage::FindArchives(page, knownFiles_, pendingFiles_)) {
    SayBelow("Incorrect HFCC web page format!");
    End();
  } else if (pendingFiles_.Count() > 0) {
    RequestFirstPending();
  } else {
    reachedHfcc_ = true;
    ShowSummary();
    End();
  }
}

// An archive that is not there, that would replace another one or that the disk does not take is passed over.
void DownloadRun::ArchiveFinished(const DownloadedDocument& document) {
  const TmyString name = pendingFiles_.Get(0);
  const TmyString file = name.FileName().RemoveExt() + ".zip";
  const bool isThere = document.statusLine.Find("200") >= 0;
  if (isThere && !IsAnothersName(folder_, file) && Save(file, document)) downloadedFiles_.Add(name);
  pendingFiles_.Delete(0);
  reachedHfcc_ = true;
  if (pendingFiles_.Count() > 0) {
    RequestFirstPending();
    return;
  }
  ShowSummary();
  End();
}

void DownloadRun::TimedOut() {
  const bool wasEibi = site_ == DownloadSite::kEibi;
  (wasEibi ? hasEibi_ : reachedHfcc_) = false;
  ShowSummary();
  End();
  if (wasEibi) StartHfcc();
}

void DownloadRun::RequestFailed() {
  if (site_ == DownloadSite::kEibi && hasEibi_) return StartHfcc();  // what was saved counts
  TimedOut();
}

// What is whole was told before, and another request took its place: an HFCC document that ends here never comes.
void DownloadRun::Closed() {
  if (site_ == DownloadSite::kHfcc) {
    TimedOut();
    return;
  }
  Say("", hasEibi_ ? "EiBi database download successful." : "EiBi database download failed.");
  StartHfcc();
}

// Where a text of the run was lost, another document may have been asked for, or the name is another's.
bool DownloadRun::Save(const TmyString& name, const DownloadedDocument& document) const {
  if (LostTexts() != lostTexts_) return false;
  SwapFile file(InPath(folder_, name));
  file.Write(document.body, document.length);
  return file.Commit();
}

// A page without one broadcast is an error page, most likely: it replaces the schedule, which stays beside it. Another
// such page is not kept, for that would push the schedule out; what cannot be read now may be either, and stays.
bool DownloadRun::KeepFormerEibi() const {
  const TmyString former = InPath(folder_, kEibiFile);
  const Former content = ContentOf(former);
  return content == Former::kSchedule ? Copy(former, InPath(folder_, "eibi.bak")) : content != Former::kUnknown;
}

void DownloadRun::ShowSummary() {
  const uint32_t count = downloadedFiles_.Count();
  const TmyString eibi = hasEibi_ ? "EiBi database file downloaded. " : "No EiBi database file downloaded. ";
  const TmyString hfcc = count == 0
                             ? TmyString("No HFCC database file")
                             : TmyString::FromDecimal(count) + " HFCC database " + (count == 1 ? "file" : "files");
  const char* const missing = hasEibi_ ? "HFCC" : reachedHfcc_ ? "EiBi" : "any";
  const bool isAllThere = hasEibi_ && reachedHfcc_;
  Say(eibi + hfcc + " downloaded.", isAllThere
                                        ? TmyString()
                                        : TmyString("Unable to connect to ") + missing +
                                              " web page.\r\nPlease check your Internet connection and try again.");
}

void DownloadRun::End() {
  desk_.DropRequest();
  desk_.ShowWorking(false);
}

void DownloadRun::Say(const TmyString& line1, const TmyString& line2) {
  line1_ = line1;
  desk_.ShowStatus(line1, line2);
}
