// The list of answers in a real window while it is scrolled, with 100,000 rows in it.
#include "bench/Measure.h"
#include "tests/support/FakePlatform.h"
#include "ui/bridge/ThumbnailProvider.h"
#include "ui/window/ViewModels.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QWheelEvent>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>

using namespace nookwise;

namespace {

constexpr int fileCount = 100'000;
constexpr double longestFrame = 33;
constexpr double secondsADay = 86'400;

/// Small pictures that take as long to make as those of real files.
class SlowReader : public TextReader {
  public:
    Result<std::string> pdf(const FileUrl&, const std::stop_token&) override {
        return std::string();
    }
    Result<std::string> ocr(const FileUrl&, RecognitionGrade, const std::stop_token&) override {
        return std::string();
    }
    Result<std::optional<Picture>> thumbnail(const FileUrl& url, std::int32_t longestSide,
                                             const std::stop_token&) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
        const auto shade = static_cast<char>(url.path()[url.path().size() / 2]);
        const PixelSize size{longestSide, longestSide};
        return std::optional(Picture{
            size, std::string(static_cast<std::size_t>(4 * size.width * size.height), shade)});
    }
    Result<std::optional<PixelSize>> pixelSize(const FileUrl&, const std::stop_token&) override {
        return std::optional<PixelSize>();
    }
};

/// A display of its own where there is none.
class OwnDisplay {
  public:
    OwnDisplay() {
        if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
            qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            return;
        server_.start(QStringLiteral("Xvfb"), {"-displayfd", "1", "-screen", "0", "1200x760x24"});
        if (server_.waitForReadyRead())
            qputenv("DISPLAY", ":" + server_.readAllStandardOutput().trimmed());
        else
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    OwnDisplay(const OwnDisplay&) = delete;
    OwnDisplay& operator=(const OwnDisplay&) = delete;
    ~OwnDisplay() {
        server_.terminate();
        server_.waitForFinished();
    }

  private:
    QProcess server_;
};

std::vector<FileItem> sampleFiles(Date now) {
    constexpr std::array extensions{"pdf", "png", "JPG", "txt", "zip", "mov", "docx", "ts"};
    std::mt19937 random(7);
    std::vector<FileItem> files;
    for (int i = 0; i < fileCount; ++i) {
        const FileUrl folder("/home/user/Documents/Folder " + std::to_string(random() % 3'000));
        const auto* const stem = i % 4 == 0 ? "Scan of a letter " : "Quarterly report ";
        const auto name =
            stem + std::to_string(i) +
            (i % 5 == 0 ? " with a name that is longer than the room it has, by far" : "") + "." +
            extensions[random() % extensions.size()];
        const auto date = now - Seconds(secondsADay * i / 100);
        files.push_back({.url = folder.append(name),
                         .size = static_cast<std::int64_t>(random() % 50'000'000),
                         .modified = date,
                         .added = date});
    }
    return files;
}

void fill(AppStore& store, Date now) {
    auto files = sampleFiles(now);
    TextsByUrl texts;
    for (std::size_t i = 0; i < files.size(); i += 4)
        texts.insert_or_assign(
            files[i].url, SharedBytes("please find enclosed the report on the autumn planting, "
                                      "14 beds and two borders along the south wall " +
                                      std::to_string(i)));
    store.lowerTexts.set(texts);
    store.texts.set(std::move(texts));
    store.files.set(std::move(files));
}

QQuickItem* findList(QQuickItem* item) {
    if (item->property("pageRows").isValid() && item->property("currentIndex").isValid())
        return item;
    for (QQuickItem* child : item->childItems())
        if (QQuickItem* list = findList(child)) return list;
    return nullptr;
}

class Scrolling {
  public:
    explicit Scrolling(QQuickWindow& window) : window_(window) {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] { ++frames_; });
    }

    /// Milliseconds from the input until the window shows what came of it.
    double timeToFrame(const std::function<void()>& input) {
        QElapsedTimer timer;
        timer.start();
        const int before = frames_;
        input();
        window_.update();
        while (frames_ == before) handleEvents();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    /// Milliseconds between the frames that are shown until `done`.
    std::vector<double> framesUntil(const std::function<bool()>& done) {
        std::vector<double> times;
        QElapsedTimer timer;
        timer.start();
        int before = frames_;
        while (!done()) {
            handleEvents();
            if (frames_ == before) continue;
            before = frames_;
            times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
            timer.restart();
        }
        return times;
    }

    void settle(std::chrono::milliseconds time) {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < time.count()) handleEvents();
    }

    /// The longest that the window answered to nothing.
    double longestPause() const { return longestPause_; }

  private:
    void handleEvents() {
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::processEvents();
        const auto time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        longestPause_ = std::max(longestPause_, time);
        if (time < 0.05) std::this_thread::sleep_for(std::chrono::microseconds(100));
    }

    QQuickWindow& window_;
    int frames_ = 0;
    double longestPause_ = 0;
};

void print(const char* way, std::vector<double> times) {
    std::ranges::sort(times);
    const auto at = [&](double part) {
        return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
    };
    const auto over = std::ranges::count_if(times, [](double time) { return time > longestFrame; });
    std::printf("%-34s %6zu %9.1f %9.1f %9.1f %9ld\n", way, times.size(), at(0.5), at(0.95),
                times.back(), static_cast<long>(over));
}

void turnWheel(QQuickWindow& window, QPointF at, int steps) {
    QWheelEvent event(at, window.mapToGlobal(at), {}, {0, -120 * steps}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
}

void press(QQuickWindow& window, int key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    }
}

double growTime(AskModel& ask, ManualTasks& tasks) {
    QElapsedTimer timer;
    timer.start();
    ask.showMore();
    tasks.advance(std::chrono::milliseconds(0));
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void scroll(QQuickWindow& window, QQuickItem& list, int rows) {
    Scrolling scrolling(window);
    scrolling.settle(std::chrono::milliseconds(500));
    const QPointF middle = list.mapToScene({list.width() / 2, list.height() / 2});
    const auto end = list.property("contentHeight").toDouble() - list.height();
    std::printf("%-34s %6s %9s %9s %9s %9s\n", "milliseconds to a frame", "frames", "median",
                "95th", "worst", "over 33");

    std::vector<double> times;
    for (int i = 0; i < 400; ++i)
        times.push_back(scrolling.timeToFrame([&] { turnWheel(window, middle, 1 + i % 3); }));
    print("wheel", times);

    times.clear();
    for (int i = 0; i < 10; ++i) {
        QMetaObject::invokeMethod(&list, "flick", Q_ARG(double, 0), Q_ARG(double, -6'000));
        const auto frames =
            scrolling.framesUntil([&] { return !list.property("moving").toBool(); });
        times.insert(times.end(), frames.begin(), frames.end());
    }
    print("flick, between frames", times);

    times.clear();
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        const double place = end * static_cast<double>(random() % 10'000) / 10'000;
        times.push_back(scrolling.timeToFrame([&] { list.setProperty("contentY", place); }));
    }
    print("jumps, as by the scroll bar", times);

    times.clear();
    for (int i = 0; i < 300; ++i)
        times.push_back(scrolling.timeToFrame([&] { press(window, Qt::Key_PageDown); }));
    print("page keys, with what is beside it", times);

    std::printf("longest pause of the window: %.1f ms, with %d rows, on %s\n",
                scrolling.longestPause(), rows, qUtf8Printable(QGuiApplication::platformName()));
}

}  // namespace

int main(int argc, char** argv) {
    const OwnDisplay display;
    const QGuiApplication application(argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);

    FakePlatform fake;
    SlowReader reader;
    const Platform platform{fake.files,    fake.metadata, fake.folders, fake.workspace,
                            fake.defaults, fake.clock,    fake.tasks,   reader};
    const auto store = AppStore::create(platform);
    ViewModels models(store, platform);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/"));
    engine.addImageProvider(QLatin1String(ThumbnailProvider::name), new ThumbnailProvider(reader));
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Nookwise/window/Main.qml")));
    const std::unique_ptr<QObject> root(component.createWithInitialProperties(models.properties()));
    auto* const window = qobject_cast<QQuickWindow*>(root.get());
    if (window == nullptr) {
        std::fputs(qUtf8Printable(component.errorString()), stderr);
        return EXIT_FAILURE;
    }
    window->show();
    fake.tasks.runEverything();
    fill(*store, fake.clock.now());
    models.ask.askFor(QStringLiteral("report"));

    std::printf("The list of answers in the window, software renderer\n");
    while (models.ask.rows()->rowCount() < fileCount) {
        const double time = growTime(models.ask, fake.tasks);
        std::printf("growing to %d rows: %.1f ms\n", models.ask.rows()->rowCount(), time);
    }
    QQuickItem* const list = findList(window->contentItem());
    if (list == nullptr) return EXIT_FAILURE;
    scroll(*window, *list, models.ask.rows()->rowCount());
    return EXIT_SUCCESS;
}
