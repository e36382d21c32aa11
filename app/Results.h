// The scan's results, kept in step with what the user does to files.
#pragma once

#include "model/Scan.h"
#include "model/TextsByUrl.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace nookwise {

using UrlSet = std::unordered_set<FileUrl>;
/// From a file's old place to its new one.
using Relocation = std::unordered_map<FileUrl, FileUrl>;

// Each returns whether it changed anything.

// Files that have left their folders.
bool removeFrom(std::vector<FileItem>& files, const UrlSet& gone);
/// A pile that becomes empty stays, empty.
bool removeFrom(Piles& piles, const UrlSet& gone);
bool removeFrom(UrlSet& ticked, const UrlSet& gone);
bool removeFrom(TextsByUrl& texts, const UrlSet& gone);
/// Where the kept file is gone, the first one left is kept. A group of fewer than two is dropped.
bool removeFrom(std::vector<DuplicateGroup>& groups, const UrlSet& gone);

// Files that are elsewhere now.
bool relocate(std::vector<FileItem>& files, const Relocation& moved);
bool relocate(Piles& piles, const Relocation& moved);
bool relocate(UrlSet& ticked, const Relocation& moved);
bool relocate(TextsByUrl& texts, const Relocation& moved);
/// The kept file stays the kept one, so that a group never offers all of its copies.
bool relocate(std::vector<DuplicateGroup>& groups, const Relocation& moved);

}  // namespace nookwise
