// The window over a home that the test makes, for tests written in QML.
#pragma once

#include "tests/support/FakePlatform.h"
#include "ui/window/ViewModels.h"

#include <QMimeData>
#include <QQmlEngine>
#include <QQuickWindow>

namespace nookwise {

class Bench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QQuickWindow* window READ window NOTIFY windowChanged)

  public:
    explicit Bench(QQmlEngine& engine) : engine_(engine) {}

    QQuickWindow* window() const { return window_.get(); }

    /// A new store on a new home, and a window on it. The scan that it starts waits for `runScan`.
    Q_INVOKABLE void open(int width, int height);
    Q_INVOKABLE void close();
    /// Presses a key and holds it until it has repeated a few times.
    Q_INVOKABLE void holdKey(int key);
    /// What a key sends that was pressed before, and is still held.
    Q_INVOKABLE void repeatKey(int key);
    /// What an input method sends to what has the focus: text that is still being composed, and
    /// text that is done.
    Q_INVOKABLE void compose(const QString& composing, const QString& done);
    /// How long after a press another one makes a double click, in milliseconds. Every window opens
    /// with 0, so that no press of a test passes for a second one.
    Q_INVOKABLE void setDoubleClickInterval(int interval);

    /// Files for every pile.
    Q_INVOKABLE void fillHome();
    /// Many old downloads.
    Q_INVOKABLE void fillDownloads(int count);
    /// Groups of two copies each, at ~/Documents/N/plan N.pdf and ~/Downloads/plan N.pdf.
    Q_INVOKABLE void fillCopies(int groups);
    /// A log with these many changes a day on as many days, the newest today, none put back.
    Q_INVOKABLE void fillActivity(int days, int perDay);
    /// Invoices and other files, some with text inside, of several ages. To be called before a
    /// scan.
    Q_INVOKABLE void fillAnswers();
    /// Files and folders on both sides of the split view.
    Q_INVOKABLE void fillFolders();
    /// So many files in one folder, "page 1000.txt" and so on.
    Q_INVOKABLE void fillFolder(const QString& path, int files);
    /// A file is made, or goes, behind the application's back.
    Q_INVOKABLE void makeFile(const QString& path);
    Q_INVOKABLE void removeFile(const QString& path);
    /// The rename screen, on four files of which one has no text and two have the same.
    Q_INVOKABLE void openRename();
    /// The same on many files, "scan N.pdf", that each say "Letter N".
    Q_INVOKABLE void openRenameOfMany(int count);
    /// What is read inside a file, beside what a scan has found.
    Q_INVOKABLE void setText(const QString& path, const QString& text);
    /// A file that was added just now comes beside what a scan has found.
    Q_INVOKABLE void land(const QString& path);
    /// Nothing is left of what a scan has found.
    Q_INVOKABLE void loseFiles();
    Q_INVOKABLE void passMinutes(int minutes);
    /// What waits for a moment of rest is done.
    Q_INVOKABLE void passMoment();
    /// So many files' texts are read, or none are under way when `total` is 0.
    Q_INVOKABLE void setIndexing(int done, int total);
    Q_INVOKABLE void runScan();
    /// What a scan that is on its way reports.
    Q_INVOKABLE void report(const QString& folder, int files, double fraction, const QString& step);

    Q_INVOKABLE QString section();
    Q_INVOKABLE QStringList tickedNames();
    Q_INVOKABLE bool scanning();
    /// What waits for the user's confirmation to be trashed.
    Q_INVOKABLE QStringList askedNames();
    /// Trash copies without a question from now on.
    Q_INVOKABLE void askNoMore();
    /// How many changes were put back.
    Q_INVOKABLE int changesPutBack();
    Q_INVOKABLE bool exists(const QString& path);
    /// How often files were shown in the file browser.
    Q_INVOKABLE int timesRevealed();
    /// The files that were opened, in order.
    Q_INVOKABLE QStringList openedNames();
    Q_INVOKABLE QString question();
    Q_INVOKABLE QString clipboardText();
    /// A long call is that far, or none is under way when `total` is 0.
    Q_INVOKABLE void setBusy(int done, int total);
    /// Files are on their way to another folder.
    Q_INVOKABLE void startMoving();
    /// They are that far, or none are under way any more when `total` is 0.
    Q_INVOKABLE void setMoved(int done, int total, double gigabytesDone, double gigabytesTotal);
    /// Another program drags files over the window, by their addresses. Whether it takes them.
    Q_INVOKABLE bool dragOver(double x, double y, const QString& list, int keys);
    /// The same for files that are dragged out of the window itself.
    Q_INVOKABLE bool dragOwnOver(double x, double y, const QString& list, int keys);
    /// They are let go where they were dragged last.
    Q_INVOKABLE bool dropDragged();
    Q_INVOKABLE void dragAway();

  signals:
    void windowChanged();

  private:
    struct Application {
        FakePlatform fake;
        std::shared_ptr<AppStore> store = AppStore::create(fake.platform());
        ViewModels models{store, fake.platform()};
    };

    bool dragTo(const QPointF& at, int keys);
    void sendKey(QEvent::Type type, int key, bool repeated);
    void addFile(std::string_view path, std::int64_t megabytes, double daysOld);
    void addCopy(std::string_view path, double daysOld);
    FileItem addToRename(const std::string& name, const QString& text);

    /// Files that are dragged over the window.
    struct Dragged {
        std::unique_ptr<QMimeData> data;
        QPointF at{};
        Qt::KeyboardModifiers keys{};
        bool entered = false;
    };

    QQmlEngine& engine_;
    std::unique_ptr<Application> application_;
    std::unique_ptr<QQuickWindow> window_;
    std::unique_ptr<Dragged> dragged_;
};

}  // namespace nookwise
