#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Morvane {

enum class EntryKind { File, Folder, Other };

// One name of a folder that is being read, valid during the visit.
struct FolderEntry {
  std::string_view name;  // as it is on the disk, with a zero behind it
  unsigned char type;     // as the folder tells it
  int folder;             // its descriptor

  // What the name stands for, links followed. Asks the disk only where the folder itself does not tell.
  EntryKind Kind() const;
};

// Calls `visit` with each entry of a folder, in the disk's order, until it gives false. Those with a
// backslash in their names are left out, since no Windows path can tell them: the result is how many.
// RuntimeError, which names `path`, where the folder cannot be opened or its medium fails.
std::size_t VisitFolder(const std::string& native, const std::string& path,
                        const std::function<bool(const FolderEntry& entry)>& visit);

}  // namespace Morvane
