#include "app/AppStore.h"
#include "platform/Text.h"

namespace nookwise {
namespace {

std::string_view at(const TextsByUrl& texts, const FileUrl& url) {
    const auto found = texts.find(url);
    return found == texts.end() ? std::string_view{} : found->second.view();
}

}  // namespace

std::vector<AskResult> AppStore::ask(const ParsedQuery& query, std::size_t limit) const {
    return nookwise::ask(query, corpus_.corpus(), limit);
}

std::vector<FileItem> AppStore::answers(const ParsedQuery& query, std::size_t limit) const {
    return nookwise::answers(query, corpus_.corpus(), limit);
}

std::optional<std::string> AppStore::snippet(const FileUrl& url,
                                             const std::vector<std::string>& words) const {
    const auto name = lowercased(url.lastPathComponent());
    return snippetOf({name, at(texts.get(), url), at(lowerTexts.get(), url)}, words);
}

}  // namespace nookwise
