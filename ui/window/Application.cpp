#include "ui/window/Application.h"

#include "ui/bridge/ThumbnailProvider.h"
#include "ui/window/EndTransfer.h"
#include "ui/window/HeldWindow.h"
#include "ui/window/ViewModels.h"
#include "ui/window/WindowMemory.h"

#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <cstdio>
#include <cstdlib>

namespace nookwise {

namespace {

/// Qt aborts where it finds no display. That is no reason to leave a core file behind.
void reportMissingDisplay(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
    if (type == QtFatalMsg) {
        std::fputs(
            "nookwise: no window can be opened, because there is no display to open it on.\n"
            "Start it inside a desktop session (with DISPLAY or WAYLAND_DISPLAY set),\n"
            "or name a Qt platform in QT_QPA_PLATFORM.\n",
            stderr);
        std::_Exit(EXIT_FAILURE);
    }
    if (type == QtCriticalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
}

void chooseRenderer() {
    // Starts at once and looks the same everywhere; a graphics driver is worth its start-up time
    // for effects that this window does not have.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND") &&
        qEnvironmentVariableIsEmpty("QSG_RHI_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
}

}  // namespace

std::unique_ptr<Application> Application::create(int& argc, char** argv) {
    const auto usual = qInstallMessageHandler(reportMissingDisplay);
    std::unique_ptr<Application> application(new Application(argc, argv));
    qInstallMessageHandler(usual);
    QGuiApplication::setApplicationName(QStringLiteral("Nookwise"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Nookwise"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.nookwise.Nookwise"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/Nookwise/assets/app-icon.svg")));
    chooseRenderer();
    return application;
}

int Application::run(const Platform& platform) {
    const auto store = AppStore::create(platform);
    ViewModels models(store, platform);
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/"));
    // The engine deletes it.
    engine.addImageProvider(QLatin1String(ThumbnailProvider::name),
                            new ThumbnailProvider(platform.reader));
    engine.setInitialProperties(models.properties());
    engine.load(QUrl(QStringLiteral("qrc:/Nookwise/window/Main.qml")));
    if (engine.rootObjects().isEmpty()) return EXIT_FAILURE;
    auto& window = *qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    const HeldWindow held(*store, window);
    const WindowMemory memory(window, models.sidebar, platform.defaults);
    window_ = &window;
    window.show();
    const int status = QGuiApplication::exec();
    endTransfer(*store);
    return status;
}

void Application::showWindow() {
    if (!window_) return;
    window_->setWindowStates(window_->windowStates() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->requestActivate();
}

}  // namespace nookwise
