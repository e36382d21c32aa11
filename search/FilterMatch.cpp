#include "search/FilterMatch.h"

#include "model/ScreenshotName.h"
#include "platform/Text.h"

namespace nookwise {
namespace {

struct Test {
    const FileItem& file;
    const TextsByUrl& sources;

    bool operator()(const QueryFilter::Exts& rule) const {
        return rule.extensions.contains(lowercased(file.url.pathExtension()));
    }

    bool operator()(const QueryFilter::Dates& rule) const {
        const auto date = file.added ? file.added : file.modified;
        return date && rule.start <= *date && *date < rule.end;
    }

    bool operator()(const QueryFilter::Larger& rule) const { return file.size >= rule.bytes; }

    bool operator()(const QueryFilter::Smaller& rule) const { return file.size <= rule.bytes; }

    bool operator()(const QueryFilter::Source& rule) const {
        const auto source = sources.find(file.url);
        return source != sources.end() && source->second.view() == rule.name;
    }

    // By its name alone: a screenshot folder may hold other files.
    bool operator()(const QueryFilter::Screenshots&) const {
        return looksLikeScreenshot(file.url.lastPathComponent());
    }
};

}  // namespace

bool passes(const FileItem& file, const QueryFilter::Rule& rule, const TextsByUrl& sources) {
    return std::visit(Test{file, sources}, rule);
}

}  // namespace nookwise
