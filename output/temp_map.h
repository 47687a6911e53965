// The file that a JPEG run draws its bitmap into. Its name is fixed, and it lies in a directory that
// everybody may write to: a file there that is a link, that belongs to someone else or that isn't a plain
// file is neither followed nor overwritten nor read. Only its owner can read it.
//
// A run holds a lock on the file from its making to its deletion, so that of two runs the second one waits
// for the first.
#pragma once

#include <memory>
#include <span>

#include "runtime/draft_file.h"
#include "runtime/file_identity.h"
#include "runtime/stream.h"

namespace ozmo {

class TempMap {
 public:
  // Makes an empty map; waits while another run has it. Null if the file can't be made or must not be
  // touched. One of the `inputs` ends the process as OutputIsInput does.
  static std::unique_ptr<TempMap> Create(std::span<const FileIdentity> inputs);

  // An empty map that no other process can find, and that goes with this object. Null if there can be none.
  static std::unique_ptr<TempMap> CreateUnnamed();

  ~TempMap();
  TempMap(const TempMap&) = delete;
  TempMap& operator=(const TempMap&) = delete;

  // A stream at the start of the map. Null if there can be none.
  Stream OpenToDraw() const { return Open("w"); }
  Stream OpenToRead() const { return Open("rb"); }

  FileIdentity Identity() const { return *IdentityOf(file_); }

  // The map stays if the process ends by itself from now on.
  void KeepOnExit() { draft_.KeepOnExit(); }

  // Returns 0, or -1 when the file could not be deleted. One without a name has nothing to delete.
  int Delete();

 private:
  explicit TempMap(int file);
  Stream Open(const char* mode) const;

  int file_;  // holds the lock
  bool isNamed_ = true;
  DraftFile draft_;
};

}  // namespace ozmo
