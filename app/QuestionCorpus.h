// Keeps what questions are asked of in step with the store's fields.
#pragma once

#include "app/Observable.h"
#include "search/SearchCorpus.h"

#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace nookwise {

/// Follows the fields whoever writes them. It must be the first to observe them, so that every
/// other observer can ask; and it must not outlive them.
class QuestionCorpus {
  public:
    struct Fields {
        Observable<std::vector<FileItem>>& files;
        Observable<TextsByUrl>& texts;
        Observable<TextsByUrl>& lowerTexts;
        Observable<TextsByUrl>& sources;
    };

    explicit QuestionCorpus(const Fields& fields);
    QuestionCorpus(const QuestionCorpus&) = delete;
    QuestionCorpus& operator=(const QuestionCorpus&) = delete;

    const SearchCorpus& corpus() const { return corpus_; }

    /// As field.mutate(change), for changes to the texts of these files at most: the others' need
    /// not be looked at.
    template <typename Mutation>
    void mutate(Observable<TextsByUrl>& field, std::span<const FileUrl> urls, Mutation change) {
        const Hint hint(*this, {&field, urls});
        field.mutate(std::move(change));
    }

    /// For when many texts have come in: questions are answered faster after it.
    void settle() { corpus_.sortInMemory(); }

  private:
    using Urls = std::span<const FileUrl>;
    struct Change {
        const Observable<TextsByUrl>* field;
        Urls urls;
    };
    /// Says what is about to change.
    class Hint {
      public:
        Hint(QuestionCorpus& owner, Change change) : owner_(owner) { owner_.change_ = change; }
        ~Hint() { owner_.change_.reset(); }
        Hint(const Hint&) = delete;
        Hint& operator=(const Hint&) = delete;

      private:
        QuestionCorpus& owner_;
    };

    void follow(Observable<TextsByUrl>& field, void (SearchCorpus::*changed)(),
                void (SearchCorpus::*changedAt)(Urls));

    SearchCorpus corpus_;
    /// Holds for that field's next notification only: what other observers write is not known.
    std::optional<Change> change_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
