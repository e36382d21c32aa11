#include "tests/ui/screens/Bench.h"

#include <QQmlContext>
#include <QtQuickTest>

namespace nookwise {

class Setup : public QObject {
    Q_OBJECT

  public slots:
    void applicationAvailable() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath(QStringLiteral("qrc:/"));
        bench_ = std::make_unique<Bench>(*engine);
        engine->rootContext()->setContextProperty(QStringLiteral("bench"), bench_.get());
    }

    void cleanupTestCase() { bench_.reset(); }

  private:
    std::unique_ptr<Bench> bench_;
};

}  // namespace nookwise

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    nookwise::Setup setup;
    return quick_test_main_with_setup(argc, argv, "screens", nullptr, &setup);
}

#include "main.moc"
