// Marlux 3. A documents folder of a test's own, for as long as the object lives.
//
//   FreshDocumentsFolder documents;   // SHGetFolderPathA(CSIDL_PERSONAL) leads to documents.Path() now
//
// The shell asks the registry at each call, so this works within the running process. Not for two programs at once.
#pragma once

#include <string>

class FreshDocumentsFolder {
 public:
  FreshDocumentsFolder();
  // `path` is made when it is not there and removed at the end with all that is in it.
  explicit FreshDocumentsFolder(const std::string& path);
  FreshDocumentsFolder(const FreshDocumentsFolder&) = delete;
  FreshDocumentsFolder& operator=(const FreshDocumentsFolder&) = delete;
  ~FreshDocumentsFolder();

  [[nodiscard]] const std::string& Path() const { return path_; }  // without a backslash at the end
  [[nodiscard]] std::string DataFolder() const { return path_ + "\\Corvane\\Marlux3"; }  // not made by this class

 private:
  std::string path_;
  std::string before_;  // the registry's text, empty when there was none
};
