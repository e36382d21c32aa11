// The answer that is looked at: its file, and the text inside.
#pragma once

#include "app/AppStore.h"
#include "app/Platform.h"
#include "ui/ask/MarkedText.h"

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class AnswerModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    /// "~/Downloads".
    Q_PROPERTY(QString place READ place NOTIFY changed)
    /// "1.2 MB · 3 wk. ago".
    Q_PROPERTY(QString figures READ figures NOTIFY changed)
    Q_PROPERTY(QString kindGroup READ kindGroup NOTIFY changed)
    Q_PROPERTY(QString kindLabel READ kindLabel NOTIFY changed)
    /// Empty for a file without one.
    Q_PROPERTY(QString picture READ picture NOTIFY changed)
    Q_PROPERTY(bool hasText READ hasText NOTIFY textChanged)
    /// The text inside as markup, with the words marked; lines are of the class "marked".
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    /// The position of the first match in the text as it is shown; -1 without one.
    Q_PROPERTY(int firstMatch READ firstMatch NOTIFY textChanged)
    /// What is said where only the beginning of a long text is shown; else empty.
    Q_PROPERTY(QString cutText READ cutText NOTIFY textChanged)

  public:
    AnswerModel(const AppStore& store, const Platform& platform);

    QString name() const;
    QString place() const;
    QString figures() const;
    QString kindGroup() const;
    QString kindLabel() const;
    QString picture() const;
    bool hasText() const { return !shown_.markup.isEmpty(); }
    QString text() const { return shown_.markup; }
    int firstMatch() const { return shown_.firstMatch; }
    QString cutText() const;

    /// Shows the file with what the store knows of it; without one there is nothing to look at.
    void look(std::optional<FileItem> file, const std::vector<std::string>& words, Date now);

    /// Opens the file with the user's own program for it.
    Q_INVOKABLE void open();
    Q_INVOKABLE void showInFolder();
    /// Puts the whole text inside on the clipboard, if there is one.
    Q_INVOKABLE void copyText() const;

  signals:
    void changed();
    void textChanged();

  private:
    void readText(SharedBytes text, const std::vector<std::string>& words);

    const AppStore& store_;
    Platform platform_;
    std::optional<FileItem> file_;
    Date now_{};
    SharedBytes text_;
    std::vector<std::string> words_;
    MarkedText shown_;
    bool cut_ = false;
};

}  // namespace nookwise
