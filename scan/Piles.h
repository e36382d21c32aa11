// Sorts scanned files into the piles of removal candidates.
#pragma once

#include "model/FileItem.h"
#include "model/SweepItem.h"
#include "platform/Metadata.h"
#include "scan/InstalledApps.h"

#include <span>
#include <stop_token>
#include <unordered_set>
#include <vector>

namespace nookwise {

/// Files that a pile has taken and that later piles leave to it.
using ClaimedFiles = std::unordered_set<FileUrl>;

/// Installers of applications that are there already, largest first.
std::vector<SweepItem> installersPile(std::span<const FileItem> downloads,
                                      std::span<const FileItem> desktop,
                                      const InstalledAppNames& apps, Date now);

/// Screenshots older than 30 days, oldest first. `elsewhere` holds the files of a screenshot folder
/// that is none of the roots. A file that is both under a root and in that folder is listed twice.
std::vector<SweepItem> screenshotsPile(std::span<const FileItem> desktop,
                                       std::span<const FileItem> downloads,
                                       std::span<const FileItem> elsewhere,
                                       const Metadata& metadata, Date now,
                                       const std::stop_token& stop);

/// Downloads untouched for more than 90 days, largest first. Takes what it lists.
std::vector<SweepItem> forgottenPile(std::span<const FileItem> downloads, const Metadata& metadata,
                                     Date now, ClaimedFiles& claimed, const std::stop_token& stop);

/// Files of 500 MB or more, largest first. Takes what it lists.
std::vector<SweepItem> largePile(std::span<const FileItem> files, const Metadata& metadata,
                                 Date now, ClaimedFiles& claimed, const std::stop_token& stop);

}  // namespace nookwise
