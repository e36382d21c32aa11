// What lies in the sample home, one concern each.
#pragma once

#include "tools/demo/SampleWriter.h"

namespace nookwise::demo {

/// Photographs, receipts, notes and slides, new and old.
void addPictures(SampleWriter& writer);
/// Invoices, plans and letters, plain text and a document package.
void addPapers(SampleWriter& writer);
/// Captures by name, and some only their own text key tells.
void addScreenshots(SampleWriter& writer);
/// Copies of what `addPictures` and `addPapers` wrote.
void addCopies(SampleWriter& writer);
/// Applications, installers of them, and installers of others.
void addInstallers(SampleWriter& writer);
/// What was downloaded and forgotten, and what is large.
void addDownloads(SampleWriter& writer);
/// Folders that a scan leaves alone.
void addProjects(SampleWriter& writer);

}  // namespace nookwise::demo
