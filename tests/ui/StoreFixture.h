// A store over fakes, for the view models.
#pragma once

#include "app/AppStore.h"
#include "tests/support/FakePlatform.h"

#include <QAbstractItemModel>

#include <gtest/gtest.h>

namespace nookwise {

class StoreFixture : public testing::Test {
  protected:
    static constexpr std::int64_t megabyte = 1'000'000;

    static FileItem file(std::string_view path, std::int64_t size) {
        return {.url = FileUrl(path), .size = size};
    }

    static SweepItem ticked(std::string_view path, std::int64_t size) {
        return {file(path, size), "untouched since 7 mo. ago", true};
    }

    static SweepItem unticked(std::string_view path, std::int64_t size) {
        return {file(path, size), "opened 2 wk. ago", false};
    }

    /// Kept is the first copy.
    static DuplicateGroup copies(std::initializer_list<std::string_view> paths, std::int64_t size) {
        DuplicateGroup group{.id = std::string(*paths.begin())};
        for (const auto path : paths) group.files.push_back(file(path, size));
        group.keep = group.files.front().url;
        return group;
    }

    void setPile(PileKind kind, std::vector<SweepItem> items) {
        Piles piles = store->piles.get();
        piles[kind] = std::move(items);
        store->piles.set(std::move(piles));
    }

    FakePlatform fake;
    std::shared_ptr<AppStore> store = AppStore::create(fake.platform());
};

/// What a row says under the name of a role.
inline QVariant value(const QAbstractItemModel* model, int row, const QByteArray& role) {
    return model->data(model->index(row, 0), model->roleNames().key(role, -1));
}

inline QString text(const QAbstractItemModel* model, int row, const QByteArray& role) {
    return value(model, row, role).toString();
}

/// One role of every row.
inline QStringList texts(const QAbstractItemModel* model, const QByteArray& role) {
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) all += text(model, row, role);
    return all;
}

}  // namespace nookwise

QT_BEGIN_NAMESPACE
// So that a failure says what was there. Found where the type is.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text.toStdString();
}
QT_END_NAMESPACE
