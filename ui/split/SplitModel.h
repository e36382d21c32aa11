// The two folders of the split view, as they are shown and worked with.
#pragma once

#include "app/SplitView.h"
#include "ui/bridge/FileMenu.h"
#include "ui/split/PaneModel.h"

#include <QObject>
#include <memory>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class SplitModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(nookwise::PaneModel* left READ left CONSTANT)
    Q_PROPERTY(nookwise::PaneModel* right READ right CONSTANT)
    Q_PROPERTY(bool leftActive READ leftActive NOTIFY changed)
    /// The side whose selected files are worked with.
    Q_PROPERTY(nookwise::PaneModel* active READ active NOTIFY changed)
    /// Something is selected that can go to the other side now.
    Q_PROPERTY(bool canPass READ canPass NOTIFY changed)
    /// "3 selected in Downloads".
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
    /// "5 MB, goes to ~/Documents"; empty while nothing is selected.
    Q_PROPERTY(QString caption READ caption NOTIFY changed)
    /// What can be done with what is selected on the active side.
    Q_PROPERTY(nookwise::FileMenu* menu READ menu CONSTANT)

  public:
    SplitModel(std::shared_ptr<AppStore> store, const Platform& platform);

    PaneModel* left() { return &left_; }
    PaneModel* right() { return &right_; }
    bool leftActive() const { return view_.active.get() == SplitView::Side::left; }
    PaneModel* active() { return leftActive() ? &left_ : &right_; }
    bool canPass() const;
    QString sentence() const;
    QString caption() const;
    FileMenu* menu() { return &menu_; }

    /// Reads both folders anew.
    Q_INVOKABLE void show() { view_.show(); }
    Q_INVOKABLE void moveSelected();
    Q_INVOKABLE void copySelected();
    Q_INVOKABLE void swapSides() { view_.swapSides(); }
    /// Asks to trash what is selected on the active side.
    Q_INVOKABLE void trashSelected();
    /// Hands what is selected on the active side to the menu. False when nothing is.
    Q_INVOKABLE bool pointMenu();

  signals:
    void changed();

  private:
    /// Shows a folder in its pane, as a double click on it does.
    class Menu : public FileMenu {
      public:
        Menu(SplitModel& split, const Platform& platform);
        void open() const override;

      private:
        SplitModel& split_;
    };

    const PaneModel& activeSide() const { return leftActive() ? left_ : right_; }
    const PaneModel& otherSide() const { return leftActive() ? right_ : left_; }
    std::vector<FileItem> selectedFiles() const;

    AppStore& store_;
    SplitView view_;
    PaneModel left_;
    PaneModel right_;
    Menu menu_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
