// What can be done with files that are pointed at, on any screen.
#pragma once

#include "app/AppStore.h"
#include "app/Platform.h"

#include <QObject>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class FileMenu : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(bool any READ any NOTIFY changed)
    /// Not so many that their programs would bury the desktop.
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY changed)
    /// Pictures and PDFs have text inside that a name can be made from.
    Q_PROPERTY(bool canRename READ canRename NOTIFY changed)
    /// One file, in which text was found.
    Q_PROPERTY(bool canCopyText READ canCopyText NOTIFY changed)

  public:
    /// `source` is the name of the screen, under which what is trashed is recorded.
    FileMenu(AppStore& store, const Platform& platform, std::string source);

    bool any() const { return !files_.empty(); }
    bool canOpen() const;
    bool canRename() const;
    bool canCopyText() const { return canCopyText_; }

    const std::vector<FileItem>& files() const { return files_; }
    void setFiles(std::vector<FileItem> files);

    Q_INVOKABLE virtual void open() const;
    Q_INVOKABLE void showInFolder() const;
    /// Hands the pictures and PDFs among the files to the rename screen.
    Q_INVOKABLE void renameByText() const;
    Q_INVOKABLE void copyText() const;
    /// Asks for confirmation, as everywhere.
    Q_INVOKABLE void moveToTrash() const;

  signals:
    void changed();
    /// Other files are pointed at: a menu that was opened on those before is out of place.
    void replaced();

  private:
    SharedBytes text() const;
    void noteText();

    AppStore& store_;
    Platform platform_;
    std::string source_;
    std::vector<FileItem> files_;
    bool canCopyText_ = false;
    Subscription texts_;
};

}  // namespace nookwise
