// Files that are complete or not there: the one way in which the programs beside the tool write a file, but
// for recordings, which grow (host_file/).
//
// What is written goes to a draft, ".ozmo-XXXXXX" in the directory of the file, and Commit gives the draft
// the file's name. Until then an older file of that name stays as it was; whatever ends the run before (a
// failure, a full disk, a signal, a limit: see draft_file.h) takes the draft away and nothing else.
//
//   WholeFile file;
//   std::string failure = file.Open({.path = path, .inputs = runtime.inputs});
//   if (!failure.empty()) return failure;
//   std::fprintf(file.stream(), ...);
//   return file.Commit();
//
// Whoever has all bytes calls WriteWholeFile. Results are empty, or the text of a failure: the path and the
// reason.
//
// The new file has the mode and owner of the older one, or the mode that the user's mask gives. Other names
// of the older file (hard links) keep its content. A device or pipe that the user named has no draft: it is
// written to as it is.
#pragma once

#include <sys/types.h>

#include <span>
#include <string>
#include <string_view>

#include "runtime/draft_file.h"
#include "runtime/file_identity.h"
#include "runtime/stream.h"

namespace ozmo {

enum class LinkRule {
  // For a path that the user named: the file that a link leads to is written, and the link stays. A link
  // that belongs to neither this user nor root may have been planted, and is refused.
  FOLLOW,
  // For a name that the program makes in some directory: whatever lies there under it is replaced, a link
  // itself and not its target.
  REPLACE,
  // For a name that has to be free: a file, a link or anything else that lies there under it stays, and Open
  // fails, or Commit where it came meanwhile.
  NEW
};

struct WholeFilePlace {
  std::string path;
  LinkRule links = LinkRule::FOLLOW;
  std::span<const FileIdentity> inputs = {};  // what the run reads: none of these is written over
  mode_t mode = 0666;                         // of a new file, less the user's mask
  bool onDisk = false;  // Commit waits until the disk has the file, for one that can't be made again
};

class WholeFile {
 public:
  [[nodiscard]] std::string Open(const WholeFilePlace& place);
  std::FILE* stream() const { return stream_.get(); }
  // For a library that opens its file by itself: what it writes there is what Commit names. Empty where there
  // is no draft, which is never so with LinkRule::REPLACE.
  const std::string& draftPath() const { return draftPath_; }

  // Without it the draft goes when this object does.
  [[nodiscard]] std::string Commit();

 private:
  std::string Failure(int reason) const;
  std::string FindTarget();
  std::string OpenDraft();
  std::string OpenInPlace();

  std::string path_;    // as the user knows it
  std::string target_;  // what the draft becomes; empty: there is no draft
  std::string draftPath_;
  LinkRule links_ = LinkRule::FOLLOW;
  mode_t mode_ = 0;
  bool onDisk_ = false;
  Stream stream_;
  DraftFile draft_;
};

[[nodiscard]] std::string WriteWholeFile(const WholeFilePlace& place, std::string_view bytes);

}  // namespace ozmo
