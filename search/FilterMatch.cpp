#include "search/FilterMatch.h"

#include "model/ScreenshotName.h"

namespace nookwise {

struct FilterMatch::Prepare {
    const SearchCorpus& corpus;

    Prepared operator()(const QueryFilter::Exts& rule) const {
        Extension prepared;
        for (const auto& extension : corpus.extensions().texts())
            prepared.isWanted.push_back(rule.extensions.contains(extension));
        return prepared;
    }

    Prepared operator()(const QueryFilter::Source& rule) const {
        const auto number = corpus.sources().find(rule.name);
        return number ? Prepared(Source{*number + 1}) : Prepared(Nothing{});
    }

    template <typename Rule>
    Prepared operator()(const Rule& rule) const {
        return rule;
    }
};

struct FilterMatch::Test {
    const SearchCorpus& corpus;
    const SearchCorpus::Row& row;
    std::string_view lowerName;

    bool operator()(const Extension& wanted) const { return wanted.isWanted[row.extension]; }

    bool operator()(const QueryFilter::Dates& rule) const {
        const auto& file = corpus.file(row);
        const auto& date = file.added ? file.added : file.modified;
        return date && rule.start <= *date && *date < rule.end;
    }

    bool operator()(const QueryFilter::Larger& rule) const {
        return corpus.file(row).size >= rule.bytes;
    }

    bool operator()(const QueryFilter::Smaller& rule) const {
        return corpus.file(row).size <= rule.bytes;
    }

    bool operator()(const Source& source) const { return row.source == source.number; }

    // By its name alone: a screenshot folder may hold other files.
    bool operator()(const QueryFilter::Screenshots&) const {
        return looksLikeScreenshot(lowerName);
    }

    bool operator()(const Nothing&) const { return false; }
};

FilterMatch::FilterMatch(const QueryFilter::Rule& rule, const SearchCorpus& corpus)
    : corpus_(corpus), prepared_(std::visit(Prepare{corpus}, rule)) {}

bool FilterMatch::passes(const SearchCorpus::Row& row, std::string_view lowerName) const {
    return std::visit(Test{corpus_, row, lowerName}, prepared_);
}

}  // namespace nookwise
