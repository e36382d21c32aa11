// One side of the split view, as it is shown and worked with.
#pragma once

#include "app/ListSelection.h"
#include "app/SplitView.h"
#include "app/TypeAhead.h"
#include "platform/Tasks.h"
#include "ui/bridge/KindBadge.h"
#include "ui/split/PaneRows.h"

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class PaneModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    /// "~/Downloads".
    Q_PROPERTY(QString place READ place NOTIFY changed)
    /// Which folder is drawn for it: "desktop", "documents", "downloads", "folder".
    Q_PROPERTY(QString art READ art NOTIFY changed)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY changed)
    Q_PROPERTY(bool active READ active NOTIFY changed)
    /// The folder has been read, and nothing that is not hidden is in it.
    Q_PROPERTY(bool empty READ empty NOTIFY changed)
    /// Reading the folder takes so long that it is worth saying.
    Q_PROPERTY(bool reading READ reading NOTIFY readingChanged)
    /// "24 items · 3 selected · 5 MB".
    Q_PROPERTY(QString status READ status NOTIFY changed)
    /// "Left side, Downloads, active".
    Q_PROPERTY(QString spoken READ spoken NOTIFY changed)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY changed)
    /// The row of the keyboard, or -1.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    // What stands for the files that are dragged.
    Q_PROPERTY(QString dragName READ dragName NOTIFY dragChanged)
    Q_PROPERTY(QString dragGroup READ dragGroup NOTIFY dragChanged)
    Q_PROPERTY(QString dragLabel READ dragLabel NOTIFY dragChanged)
    Q_PROPERTY(bool dragsFolder READ dragsFolder NOTIFY dragChanged)

  public:
    enum class Step { Previous, Next, PageUp, PageDown, First, Last };
    Q_ENUM(Step)

    PaneModel(AppStore& store, SplitView& view, SplitView::Side side, const Platform& platform);

    QString name() const;
    QString place() const;
    QString art() const;
    bool canGoUp() const { return pane_.canGoUp(); }
    bool active() const { return view_.active.get() == side_; }
    bool empty() const { return isListed() && pane_.items.get().empty(); }
    bool reading() const { return reading_; }
    QString status() const;
    QString spoken() const;
    int selectedCount() const { return static_cast<int>(pane_.selection.get().size()); }
    int currentRow() const;
    QAbstractListModel* rows() { return &rows_; }
    QString dragName() const;
    QString dragGroup() const { return dragBadge_.group; }
    QString dragLabel() const { return dragBadge_.label; }
    bool dragsFolder() const { return dragged_.isFolder; }

    /// "5 MB", of the selected files; empty where only folders are selected.
    QString selectedBytesText() const;
    std::vector<Pane::Item> selectedItems() const;

    // The pointer. Rows that do not exist are the room below the last one.
    /// On what is selected already, a press does nothing yet: it may begin a drag.
    Q_INVOKABLE void press(int row, uint modifiers);
    /// What the press left to do, where nothing was dragged.
    Q_INVOKABLE void release();
    /// Before a context menu: selects the row unless it is among the selected.
    Q_INVOKABLE void pressForMenu(int row);
    /// Whether there is something to drag after a press on this row.
    Q_INVOKABLE bool beginDrag(int row);

    // The keyboard.
    /// `page` is the number of rows in sight.
    Q_INVOKABLE void step(Step step, uint modifiers, int page);
    Q_INVOKABLE void toggleCurrent();
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();
    /// Goes to the row whose name begins with what is typed. False when the key means nothing here.
    Q_INVOKABLE bool type(const QString& typed);

    /// A folder is shown, a file is opened with its program.
    Q_INVOKABLE void open(int row);
    /// The folder that is left has the keyboard in the folder above.
    Q_INVOKABLE void goUp();
    Q_INVOKABLE void activate();

    /// The folder of a row, else the pane's own for -1.
    FileUrl dropFolder(int row) const;
    bool isFolder(int row) const;
    /// Whether something would happen if the files were dropped on the folder.
    bool takes(const std::vector<FileUrl>& files, const FileUrl& folder) const;
    void drop(const std::vector<FileUrl>& files, const FileUrl& folder, TransferKind kind);

  signals:
    void changed();
    void readingChanged();
    void currentRowChanged();
    void dragChanged();
    /// A folder has been read that was not shown before.
    void shownAnew();

  private:
    void loadingChanged();
    void landed();
    void select(std::size_t row, SelectionMode mode);
    void countSelected();
    /// Whether the rows are those of the folder, and not of the one before.
    bool isListed() const { return pane_.listed() == pane_.folder.get(); }
    const Pane::Item* item(int row) const;

    AppStore& store_;
    SplitView& view_;
    SplitView::Side side_;
    Platform platform_;
    Pane& pane_;
    PaneRows rows_;
    ListSelection selection_;
    TypeAhead typeAhead_;
    /// The folder that was shown last, once it had been read.
    FileUrl shown_;
    /// Where the keyboard goes when the folder above has been read.
    FileUrl left_;
    /// The row and what becomes of it, when nothing is dragged after a press.
    std::optional<std::pair<FileUrl, SelectionMode>> pressed_;
    std::int64_t selectedBytes_ = 0;
    bool filesSelected_ = false;
    bool reading_ = false;
    std::unique_ptr<Tasks::Delay> readingDelay_;
    Pane::Item dragged_;
    KindBadge dragBadge_{QStringLiteral("other"), {}};
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
