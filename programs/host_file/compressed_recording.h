// Recordings that are finished, compressed by zstd: <name of the recording>.zst.
//
// `zstd -d` gives the plain file back. Readers can begin in the middle, since the file ends in a seek table
// in the seekable format of zstd's contrib/seekable_format; and they find an hour without opening the hours
// before it, since an index comes before that table:
//
//   frames of 256 kB of the recording | a skippable frame of type 0 with the index | the seek table
//
// The index, a zstd frame with a checksum inside the skippable one, holds the text "ozmo1", and of each time
// record and each mark of the recording its place (8 bytes), its size (4 bytes) and its bytes. Where the
// records don't follow each other to the end of the file, as after a crash of the host, the place where the
// chain breaks is in the index with a size of 0. Numbers are little-endian.
#pragma once

#include <string>

namespace ozmo::host_file {

// Whether this program was built with libzstd.
bool CanCompress();

// Compresses the recording at `path` and then removes it. At every moment one of the two is there, whole: the
// compressed file is written under a name of its own, <directory>/.<name>.zst.draft, brought to the disk, and
// only then given its name, as a link or, on a file system without hard links, by a renaming. Where a .zst of
// the recording is there already, it is kept, and the recording goes only if the two are the same. Empty, or
// why not; nothing has changed then.
[[nodiscard]] std::string CompressRecording(const std::string& path);

// The node in the head of a recording, plain or compressed, that a recorder of this kind has written; empty
// where the file is anything else, a link, or can't be read.
std::string NodeOfRecording(const std::string& path);

}  // namespace ozmo::host_file
