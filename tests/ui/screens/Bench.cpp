#include "tests/ui/screens/Bench.h"

#include "platform/Text.h"
#include "ui/bridge/ThumbnailProvider.h"
#include "ui/split/FileListMime.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QStyleHints>
#include <algorithm>
#include <utility>

namespace nookwise {

namespace {

constexpr std::int64_t megabyte = 1'000'000;
constexpr double secondsADay = 86'400;

}  // namespace

void Bench::open(int width, int height) {
    close();
    setDoubleClickInterval(0);
    application_ = std::make_unique<Application>();
    application_->fake.files.setVolumeFigures(VolumeFigures{61'270 * megabyte, 494'380 * megabyte});
    application_->store->refreshDisk();
    engine_.addImageProvider(QLatin1String(ThumbnailProvider::name),
                             new ThumbnailProvider(application_->fake.reader));
    QQmlComponent component(&engine_, QUrl(QStringLiteral("qrc:/Nookwise/window/Main.qml")));
    QObject* root = component.createWithInitialProperties(application_->models.properties());
    window_.reset(qobject_cast<QQuickWindow*>(root));
    if (!window_) qFatal("%s", qUtf8Printable(component.errorString()));
    window_->resize(width, height);
    window_->show();
    window_->requestActivate();
    emit windowChanged();
}

void Bench::close() {
    window_.reset();
    emit windowChanged();
    engine_.removeImageProvider(QLatin1String(ThumbnailProvider::name));
    application_.reset();
}

void Bench::holdKey(int key) {
    sendKey(QEvent::KeyPress, key, false);
    for (int repeat = 0; repeat < 3; ++repeat) repeatKey(key);
    sendKey(QEvent::KeyRelease, key, false);
}

void Bench::repeatKey(int key) {
    sendKey(QEvent::KeyRelease, key, true);
    sendKey(QEvent::KeyPress, key, true);
}

void Bench::compose(const QString& composing, const QString& done) {
    QInputMethodEvent event(composing, {});
    event.setCommitString(done);
    QCoreApplication::sendEvent(window_->focusObject(), &event);
}

void Bench::setDoubleClickInterval(int interval) {
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(interval);
}

void Bench::fillHome() {
    addFile("/home/user/Downloads/old survey.zip", 300, 200);
    addFile("/home/user/Downloads/old slides.pdf", 200, 100);
    addFile("/home/user/Downloads/Reading/old notes.txt", 100, 120);
    addFile("/home/user/Documents/harbour.mov", 700, 10);
    addFile("/home/user/Desktop/Screenshot 1.png", 5, 40);
    addFile("/home/user/Downloads/Blue Kite Setup 1.2.dmg", 50, 20);
    application_->fake.files.addPackage("/Applications/Blue Kite.app");
    addCopy("/home/user/Documents/Fernhill/plan.pdf", 60);
    addCopy("/home/user/Desktop/plan copy.pdf", 1);
}

void Bench::fillDownloads(int count) {
    for (int i = 0; i < count; ++i) {
        const auto number = std::to_string(1'000 + i);
        addFile("/home/user/Downloads/receipt " + number + ".pdf", 1, 100);
    }
}

void Bench::fillCopies(int groups) {
    const Date date = application_->fake.clock.now() - Seconds(secondsADay);
    for (int group = 0; group < groups; ++group) {
        const auto number = std::to_string(100 + group);
        const std::string contents = number + std::string(100'000, 'p');
        for (const auto& folder : {"Documents/" + number, std::string("Downloads")}) {
            application_->fake.files.addFile(
                "/home/user/" + folder + "/plan " + number + ".pdf",
                {.contents = contents, .modified = date, .added = date});
        }
    }
}

void Bench::fillActivity(int days, int perDay) {
    std::vector<ActivityEntry> entries;
    for (int day = 0; day < days; ++day) {
        for (int number = perDay; number > 0; --number) {
            ActivityEntry entry;
            entry.id = Uuid::random();
            entry.date = application_->fake.clock.now() - Seconds(day * secondsADay);
            entry.title = "Swept " + std::to_string(100 * day + number) + " downloads";
            entry.source = "Forgotten downloads";
            entry.moves.push_back({FileUrl("/home/user/Downloads/old.zip"),
                                   FileUrl("/Trash/old.zip"), 100 * megabyte});
            entries.push_back(std::move(entry));
        }
    }
    application_->store->activity.set(std::move(entries));
}

void Bench::fillAnswers() {
    addFile("/home/user/Downloads/Fernhill/Invoice 2201 – Fernhill.pdf", 1, 15);
    addFile("/home/user/Downloads/scan-0091.pdf", 2, 18);
    addFile("/home/user/Documents/Kiln service.pdf", 3, 21);
    addFile("/home/user/Desktop/notes <b>invoice<b>.txt", 4, 40);
    addFile("/home/user/Documents/harbour.mov", 700, 3);
    application_->fake.reader.setPdf(
        "/home/user/Downloads/scan-0091.pdf",
        "Fernhill Garden Trust. Please find our invoice for the autumn planting, 14 beds and two "
        "borders along the south wall.\n\nWith thanks for a <i>dry</i> week.");
    application_->fake.reader.setPdf("/home/user/Documents/Kiln service.pdf",
                                     "Invoice total 1,240.00, due within thirty days.");
}

void Bench::fillFolders() {
    addFile("/home/user/Downloads/Fernhill/plan.pdf", 1, 1);
    addFile("/home/user/Downloads/Invoice 2207.pdf", 2, 1);
    addFile("/home/user/Downloads/lighting.json", 3, 2);
    addFile("/home/user/Downloads/workshop.zip", 52, 3);
    addFile("/home/user/Documents/Glazes/celadon.txt", 1, 1);
    addFile("/home/user/Documents/Seed list.rtf", 1, 4);
}

void Bench::fillFolder(const QString& path, int files) {
    for (int i = 0; i < files; ++i)
        addFile(path.toStdString() + "/page " + std::to_string(1'000 + i) + ".txt", 1, 1 + i);
}

void Bench::makeFile(const QString& path) {
    addFile(path.toStdString(), 1, 0);
}

void Bench::removeFile(const QString& path) {
    application_->fake.files.remove(path.toStdString());
}

void Bench::openRename() {
    application_->store->renameFiles.set(
        std::vector{addToRename("scan-0091.pdf", QStringLiteral("Fernhill Garden Trust")),
                    addToRename("scan-0092.pdf", QStringLiteral("Fernhill Garden Trust")),
                    addToRename("IMG_4471.heic", QString()),
                    addToRename("map.png", QStringLiteral("Harbour road"))});
}

void Bench::openRenameOfMany(int count) {
    std::vector<FileItem> files;
    for (int number = 0; number < count; ++number) {
        files.push_back(addToRename("scan " + std::to_string(number) + ".pdf",
                                    QStringLiteral("Letter %1").arg(number)));
    }
    application_->store->renameFiles.set(std::move(files));
}

FileItem Bench::addToRename(const std::string& name, const QString& text) {
    const auto url = FileUrl("/home/user/Downloads").append(name);
    addFile(url.path(), 1, 0);
    if (!text.isEmpty()) setText(QString::fromStdString(std::string(url.path())), text);
    return {.url = url, .size = megabyte, .added = application_->fake.clock.now()};
}

void Bench::setText(const QString& path, const QString& text) {
    const FileUrl url(path.toStdString());
    const std::string bytes = text.toStdString();
    const auto put = [&url](const std::string& value) {
        return [&url, shared = SharedBytes(value)](TextsByUrl& texts) {
            texts.insert_or_assign(url, shared);
            return true;
        };
    };
    application_->store->texts.mutate(put(bytes));
    application_->store->lowerTexts.mutate(put(lowercased(bytes)));
    application_->fake.tasks.advance(std::chrono::milliseconds(250));
}

void Bench::land(const QString& path) {
    FileItem file;
    file.url = FileUrl(path.toStdString());
    file.size = megabyte;
    file.added = application_->fake.clock.now();
    std::vector<FileItem> files = application_->store->files.get();
    files.push_back(std::move(file));
    application_->store->files.set(std::move(files));
    application_->fake.tasks.advance(std::chrono::milliseconds(250));
}

void Bench::loseFiles() {
    application_->store->files.set({});
    application_->fake.tasks.advance(std::chrono::milliseconds(250));
}

void Bench::passMinutes(int minutes) {
    application_->fake.clock.set(application_->fake.clock.now() + std::chrono::minutes(minutes));
    application_->fake.tasks.advance(std::chrono::minutes(minutes));
}

void Bench::passMoment() {
    application_->fake.tasks.advance(std::chrono::milliseconds(250));
}

void Bench::setIndexing(int done, int total) {
    if (total == 0) return application_->store->indexing.set(std::nullopt);
    application_->store->indexing.set(
        AppStore::Indexing{static_cast<std::size_t>(done), static_cast<std::size_t>(total)});
}

void Bench::runScan() {
    application_->fake.tasks.runEverything();
}

void Bench::report(const QString& folder, int files, double fraction, const QString& step) {
    application_->store->progress.set({folder.toStdString(), files, fraction, step.toStdString()});
}

QString Bench::section() {
    return application_->models.sidebar.section();
}

QStringList Bench::tickedNames() {
    QStringList names;
    for (const auto& item : application_->store->checkedItems()) {
        names += QString::fromStdString(std::string(item.file.url.lastPathComponent()));
    }
    return names;
}

QStringList Bench::askedNames() {
    QStringList names;
    if (const auto& request = application_->store->pendingTrash.get()) {
        for (const auto& file : request->files)
            names += QString::fromStdString(std::string(file.url.lastPathComponent()));
    }
    return names;
}

void Bench::askNoMore() {
    application_->fake.defaults.setBoolean(skipConfirmationKey("Duplicates"), true);
}

int Bench::changesPutBack() {
    return static_cast<int>(
        std::ranges::count(application_->store->activity.get(), true, &ActivityEntry::restored));
}

bool Bench::exists(const QString& path) {
    return application_->fake.files.exists(FileUrl(path.toStdString()));
}

int Bench::timesRevealed() {
    return static_cast<int>(application_->fake.workspace.revealed.size());
}

QStringList Bench::openedNames() {
    QStringList names;
    for (const auto& url : application_->fake.workspace.opened)
        names += QString::fromStdString(std::string(url.lastPathComponent()));
    return names;
}

QString Bench::question() {
    return QString::fromStdString(application_->store->searchText.get());
}

QString Bench::clipboardText() {
    return QGuiApplication::clipboard()->text();
}

void Bench::setBusy(int done, int total) {
    if (total == 0) return application_->store->busy.set(std::nullopt);
    application_->store->busy.set(
        Busy{static_cast<std::size_t>(done), static_cast<std::size_t>(total)});
}

void Bench::startMoving() {
    application_->store->transferring.set(true);
    application_->store->toast.set(Toast{Uuid::random(), "Moving 3 files…", std::nullopt});
}

bool Bench::dragOver(double x, double y, const QString& list, int keys) {
    if (!dragged_)
        dragged_ = std::make_unique<Dragged>(Dragged{.data = std::make_unique<QMimeData>()});
    dragged_->data->setData(QStringLiteral("text/uri-list"), list.toUtf8());
    return dragTo({x, y}, keys);
}

bool Bench::dragOwnOver(double x, double y, const QString& list, int keys) {
    if (!dragged_) {
        auto files = filesIn(list.toUtf8());
        dragged_ = std::make_unique<Dragged>(
            Dragged{.data = std::make_unique<FileListMime>(std::move(files))});
    }
    return dragTo({x, y}, keys);
}

bool Bench::dragTo(const QPointF& at, int keys) {
    constexpr Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    dragged_->at = at;
    dragged_->keys = Qt::KeyboardModifiers(keys);
    if (!std::exchange(dragged_->entered, true)) {
        QDragEnterEvent enter(at.toPoint(), actions, dragged_->data.get(), Qt::LeftButton,
                              dragged_->keys);
        QCoreApplication::sendEvent(window_.get(), &enter);
    }
    QDragMoveEvent move(at.toPoint(), actions, dragged_->data.get(), Qt::LeftButton,
                        dragged_->keys);
    QCoreApplication::sendEvent(window_.get(), &move);
    return move.isAccepted();
}

bool Bench::dropDragged() {
    QDropEvent drop(dragged_->at, Qt::CopyAction | Qt::MoveAction, dragged_->data.get(),
                    Qt::LeftButton, dragged_->keys);
    QCoreApplication::sendEvent(window_.get(), &drop);
    dragged_.reset();
    return drop.isAccepted();
}

void Bench::dragAway() {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(window_.get(), &leave);
    dragged_.reset();
}

void Bench::setMoved(int done, int total, double gigabytesDone, double gigabytesTotal) {
    constexpr double gigabyte = 1e9;
    auto& progress = application_->store->transferProgress;
    if (total == 0) return progress.set(std::nullopt);
    progress.set(TransferProgress{
        static_cast<std::size_t>(done), static_cast<std::size_t>(total),
        static_cast<std::int64_t>(gigabytesDone * gigabyte),
        gigabytesTotal > 0 ? std::optional(static_cast<std::int64_t>(gigabytesTotal * gigabyte))
                           : std::nullopt});
}

bool Bench::scanning() {
    return application_->store->phase.get() == AppStore::Phase::scanning;
}

void Bench::sendKey(QEvent::Type type, int key, bool repeated) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(window_.get(), &event);
    QCoreApplication::processEvents();
}

void Bench::addFile(std::string_view path, std::int64_t megabytes, double daysOld) {
    const Date date = application_->fake.clock.now() - Seconds(daysOld * secondsADay);
    application_->fake.files.addFile(
        path, {.size = megabytes * megabyte, .modified = date, .added = date});
}

void Bench::addCopy(std::string_view path, double daysOld) {
    const Date date = application_->fake.clock.now() - Seconds(daysOld * secondsADay);
    application_->fake.files.addFile(
        path, {.contents = std::string(100'000, 'p'), .modified = date, .added = date});
}

}  // namespace nookwise
