// Marlux 3. Replaces a file as a whole or not at all: the new content is written beside it and swapped in when all of
// it is on the disk. A full disk, a crash or a kill in between leaves the old file as it was.
//
//   SwapFile file(folder + "\\tasks.mxt");
//   file.Write(&record, sizeof record);
//   if (!file.Commit()) ...   // the old content is still there
//
// A file that somebody holds open cannot be exchanged. Where its holder lets others write it is written over, which a
// crash may cut short; the new content then still lies beside it.
#pragma once

#include <optional>

#include "foundation/TmyFile.h"

class SwapFile {
 public:
  static constexpr char kEnding[] = ".new";  // behind the name, or its end, while the content grows

  explicit SwapFile(const TmyString& name);
  SwapFile(const SwapFile&) = delete;
  SwapFile& operator=(const SwapFile&) = delete;
  ~SwapFile();  // without Commit the new content is dropped

  // Once one write failed all later ones do, and Commit, too.
  bool Write(const void* data, uint32_t length);
  // False when a write failed, when the disk did not take the content or when the file could not be replaced.
  [[nodiscard]] bool Commit();

 private:
  enum class Copied { kNothing, kPart, kWhole };

  void Drop();
  [[nodiscard]] Copied CopyOver() const;
  [[nodiscard]] Copied CopyInto(TmyFile& from) const;

  class FlushedFile : public TmyFile {
   public:
    using TmyFile::TmyFile;
    bool SetSize(uint64_t bytes);
    bool Flush() { return IsOpen() && FlushFileBuffers(Handle()); }
  };

  TmyString name_;
  TmyString aside_;
  std::optional<FlushedFile> file_;
  bool whole_;
};
