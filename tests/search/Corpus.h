// Files with texts and origins, to ask questions of.
#pragma once

#include "platform/Text.h"
#include "search/Ask.h"
#include "search/QueryParser.h"
#include "tests/search/Berlin.h"

#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct Corpus {
    std::vector<FileItem> files;
    TextsByUrl texts;
    TextsByUrl lowerTexts;
    TextsByUrl sources;

    FileItem& add(std::string_view path) {
        return files.emplace_back(FileItem{.url = FileUrl(path)});
    }

    FileItem& addWithText(std::string_view path, std::string_view text) {
        const FileUrl url(path);
        texts[url] = SharedBytes(text);
        lowerTexts[url] = SharedBytes(lowercased(text));
        return add(path);
    }

    SearchCorpus made() const { return SearchCorpus({files, texts, lowerTexts, sources}); }

    std::vector<AskResult> ask(const ParsedQuery& query, std::size_t limit = 100) const {
        return nookwise::ask(query, made(), limit);
    }

    std::vector<AskResult> ask(std::string_view question, std::size_t limit = 100) const {
        return ask(QueryParser::parse(question, now), limit);
    }

    /// The paths of the answers.
    std::vector<std::string> paths(std::string_view question, std::size_t limit = 100) const {
        std::vector<std::string> found;
        for (const auto& result : ask(question, limit)) found.emplace_back(result.file.url.path());
        return found;
    }
};

using Paths = std::vector<std::string>;

}  // namespace nookwise
