#include "app/QuestionCorpus.h"

namespace nookwise {

QuestionCorpus::QuestionCorpus(const Fields& fields)
    : corpus_({.files = fields.files.get(),
               .texts = fields.texts.get(),
               .lowerTexts = fields.lowerTexts.get(),
               .sources = fields.sources.get()}) {
    subscriptions_.push_back(fields.files.observe([this] { corpus_.filesChanged(); }));
    follow(fields.lowerTexts, &SearchCorpus::lowerTextsChanged, &SearchCorpus::lowerTextsChanged);
    follow(fields.sources, &SearchCorpus::sourcesChanged, &SearchCorpus::sourcesChanged);
}

void QuestionCorpus::follow(Observable<TextsByUrl>& field, void (SearchCorpus::*changed)(),
                            void (SearchCorpus::*changedAt)(Urls)) {
    subscriptions_.push_back(field.observe([this, &field, changed, changedAt] {
        const auto change = std::exchange(change_, std::nullopt);
        if (change && change->field == &field)
            (corpus_.*changedAt)(change->urls);
        else
            (corpus_.*changed)();
    }));
}

}  // namespace nookwise
