// A short list of values as a list model.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <utility>
#include <vector>

namespace nookwise {

/// For lists of tens of rows: every row is kept, and compared when the list is set anew.
template <typename Row>
class ValueListModel : public QAbstractListModel {
  public:
    struct Role {
        QByteArray name;
        std::function<QVariant(const Row&)> value;
    };

    explicit ValueListModel(std::vector<Role> roles) : roles_(std::move(roles)) {}

    const std::vector<Row>& rows() const { return rows_; }

    /// Rows that stay equal are left alone, so that their delegates keep focus and animations.
    void setRows(std::vector<Row> rows) {
        if (rows.size() != rows_.size()) {
            beginResetModel();
            rows_ = std::move(rows);
            endResetModel();
            return;
        }
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (rows_[row] == rows[row]) continue;
            rows_[row] = std::move(rows[row]);
            const auto changed = index(static_cast<int>(row));
            emit dataChanged(changed, changed);
        }
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const auto position = static_cast<std::size_t>(role - Qt::UserRole);
        const auto row = static_cast<std::size_t>(index.row());
        const bool known = index.isValid() && row < rows_.size() && position < roles_.size();
        return known ? roles_[position].value(rows_[row]) : QVariant();
    }

    QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        for (std::size_t position = 0; position < roles_.size(); ++position) {
            names.insert(Qt::UserRole + static_cast<int>(position), roles_[position].name);
        }
        return names;
    }

  private:
    std::vector<Role> roles_;
    std::vector<Row> rows_;
};

}  // namespace nookwise
