#include "tests/ui/screens/Bench.h"

#include <QQmlComponent>
#include <algorithm>

namespace nookwise {

namespace {

constexpr std::int64_t megabyte = 1'000'000;
constexpr double secondsADay = 86'400;

}  // namespace

void Bench::open(int width, int height) {
    close();
    application_ = std::make_unique<Application>();
    application_->fake.files.setVolumeFigures(VolumeFigures{61'270 * megabyte, 494'380 * megabyte});
    application_->store->refreshDisk();
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
    application_.reset();
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

bool Bench::scanning() {
    return application_->store->phase.get() == AppStore::Phase::scanning;
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
