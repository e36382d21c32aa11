// Reads the roots: which folders are entered, which files are recorded.
#pragma once

#include "model/Scan.h"
#include "platform/FileManager.h"
#include "scan/Scanner.h"

#include <functional>
#include <span>
#include <stop_token>
#include <string_view>
#include <vector>

namespace nookwise {

/// All files of all roots in walk order, with each root's part of them.
struct WalkedFiles {
    std::vector<FileItem> files;
    /// `files` from ends[i - 1] (0 for the first root) up to ends[i] belong to root i.
    std::vector<std::size_t> ends;

    std::span<FileItem> ofRoot(std::size_t root);
};

/// True when a folder with these entries is a software project.
bool isProject(std::span<const std::string_view> entryNames);

/// The record of a file. The allocated size counts, else the file's own size, else 0.
FileItem fileItem(FoundFile&& found);

/// The regular files immediately in a folder; empty when it cannot be listed.
std::vector<FileItem> topLevelFiles(const FileManager& files, const FileUrl& folder,
                                    const std::stop_token& stop);

/// A root that is `home` or holds it is not read. A root that lies inside another one is read once,
/// as itself, and of two roots that are the same folder the first one counts.
WalkedFiles walk(const FileManager& files, std::span<const Scanner::Root> roots,
                 const FileUrl& home, const Scanner::Progress& progress,
                 const std::stop_token& stop);

}  // namespace nookwise
