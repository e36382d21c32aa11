// Whether a file passes a question's filter.
#pragma once

#include "model/FileItem.h"
#include "model/TextsByUrl.h"
#include "search/ParsedQuery.h"

namespace nookwise {

/// `sources` has the files' origins.
bool passes(const FileItem& file, const QueryFilter::Rule& rule, const TextsByUrl& sources);

}  // namespace nookwise
