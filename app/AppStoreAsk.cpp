#include "app/AppStore.h"

namespace nookwise {

std::vector<AskResult> AppStore::ask(const ParsedQuery& query, std::size_t limit) const {
    return nookwise::ask(query,
                         SearchCorpus{.files = files.get(),
                                      .texts = texts.get(),
                                      .lowerTexts = lowerTexts.get(),
                                      .sources = sources.get()},
                         limit);
}

}  // namespace nookwise
