// The window over a home that the test makes, for tests written in QML.
#pragma once

#include "tests/support/FakePlatform.h"
#include "ui/window/ViewModels.h"

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
    /// What is read inside a file, beside what a scan has found.
    Q_INVOKABLE void setText(const QString& path, const QString& text);
    /// A file that was added just now comes beside what a scan has found.
    Q_INVOKABLE void land(const QString& path);
    /// Nothing is left of what a scan has found.
    Q_INVOKABLE void loseFiles();
    Q_INVOKABLE void passMinutes(int minutes);
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

  signals:
    void windowChanged();

  private:
    struct Application {
        FakePlatform fake;
        std::shared_ptr<AppStore> store = AppStore::create(fake.platform());
        ViewModels models{store, fake.platform()};
    };

    void sendKey(QEvent::Type type, int key, bool repeated);
    void addFile(std::string_view path, std::int64_t megabytes, double daysOld);
    void addCopy(std::string_view path, double daysOld);

    QQmlEngine& engine_;
    std::unique_ptr<Application> application_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace nookwise
