// A store with files and the texts inside them, for the Ask screen.
#pragma once

#include "platform/Text.h"
#include "tests/ui/StoreFixture.h"
#include "ui/ask/AskModel.h"

#include <chrono>

namespace nookwise {

class AskFixture : public StoreFixture {
  protected:
    AskFixture() { store->section.set(AppSection::search); }

    FileItem found(std::string_view path, double daysOld, std::int64_t size = megabyte) {
        auto item = file(path, size);
        item.added = fake.clock.now() - Seconds(daysOld * 86'400);
        return item;
    }

    void setFiles(std::vector<FileItem> files) {
        store->files.set(std::move(files));
        landed();
    }

    void setText(std::string_view path, std::string_view text) {
        const auto put = [&](std::string_view value) {
            return [path, bytes = SharedBytes(value)](TextsByUrl& texts) {
                texts.insert_or_assign(FileUrl(path), bytes);
                return true;
            };
        };
        store->texts.mutate(put(text));
        store->lowerTexts.mutate(put(lowercased(text)));
    }

    void setSource(std::string_view path, std::string_view source) {
        store->sources.mutate([&](TextsByUrl& sources) {
            sources.insert_or_assign(FileUrl(path), SharedBytes(source));
            return true;
        });
    }

    /// What came into the store is taken up by the screen.
    void landed() { fake.tasks.advance(std::chrono::milliseconds(250)); }

    void ask(const char* question) { model.setQuestion(QString::fromUtf8(question)); }
    QStringList names() { return texts(model.rows(), "name"); }
    QString selectedName() { return model.selectedFile()->name(); }

    AskModel model{*store, fake.platform()};
};

}  // namespace nookwise
