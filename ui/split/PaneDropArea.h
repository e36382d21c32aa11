// Where files may be dropped: the folder of a pane, or, for files of its own, a folder that it
// lists.
#pragma once

#include "ui/split/PaneModel.h"

#include <QQuickItem>
#include <vector>

#include <QtQml/qqmlregistration.h>

class QDropEvent;

namespace nookwise {

class PaneDropArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(nookwise::PaneModel* pane MEMBER pane_ REQUIRED)
    // Where the rows are: the list's edges, the first row's upper edge, and a row's height.
    Q_PROPERTY(double listTop MEMBER listTop_)
    Q_PROPERTY(double listBottom MEMBER listBottom_)
    Q_PROPERTY(double rowsTop MEMBER rowsTop_ WRITE setRowsTop)
    Q_PROPERTY(double rowHeight MEMBER rowHeight_)
    /// What would happen to the files if they were dropped now.
    Q_PROPERTY(Offer offer READ offer NOTIFY offerChanged)
    /// The row of the folder that would take them, or -1 for the pane's own.
    Q_PROPERTY(int row READ row NOTIFY offerChanged)
    /// Whether the files come from another program.
    Q_PROPERTY(bool foreign READ foreign NOTIFY offerChanged)
    /// How far down the pointer is while files are dragged; -1 otherwise.
    Q_PROPERTY(double pointerY READ pointerY NOTIFY pointerYChanged)

  public:
    enum class Offer { None, Move, Copy };
    Q_ENUM(Offer)

    explicit PaneDropArea(QQuickItem* parent = nullptr);

    Offer offer() const { return now_.offer; }
    int row() const { return now_.row; }
    bool foreign() const { return now_.foreign; }
    double pointerY() const { return pointerY_; }

  signals:
    void offerChanged();
    void pointerYChanged();
    void dropped();

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    struct Now {
        Offer offer = Offer::None;
        int row = -1;
        bool foreign = false;
        /// The folder that would take them.
        FileUrl folder{};

        friend bool operator==(const Now&, const Now&) = default;
    };

    void consider(QDropEvent& event);
    void setRowsTop(double top);
    Now offerAt(double y) const;
    int folderRowAt(double y) const;
    void show(const Now& now, double pointerY);

    PaneModel* pane_ = nullptr;
    double listTop_ = 0;
    double listBottom_ = 0;
    double rowsTop_ = 0;
    double rowHeight_ = 1;
    std::vector<FileUrl> files_;
    Now now_;
    /// What the keys ask for, wherever the pointer is.
    Offer asked_ = Offer::None;
    bool isForeign_ = false;
    double pointerY_ = -1;
};

}  // namespace nookwise
