#include "ui/window/WindowMemory.h"

#include <QScreen>

namespace nookwise {

namespace {

constexpr std::string_view sizeKey = "window.size";
constexpr std::string_view maximisedKey = "window.maximised";
constexpr std::string_view sectionKey = "window.section";

/// "1200x760"; an invalid size when the text is anything else.
QSize sizeFromText(const std::string& text) {
    const QStringList parts = QString::fromStdString(text).split(u'x');
    if (parts.size() != 2) return {};
    bool widthIsNumber = false;
    bool heightIsNumber = false;
    const QSize size(parts[0].toInt(&widthIsNumber), parts[1].toInt(&heightIsNumber));
    return widthIsNumber && heightIsNumber ? size : QSize();
}

}  // namespace

WindowMemory::WindowMemory(QQuickWindow& window, SidebarModel& sidebar, UserDefaults& defaults)
    : window_(window), sidebar_(sidebar), defaults_(defaults) {
    restore();
    soon_.setSingleShot(true);
    soon_.setInterval(std::chrono::seconds(1));
    connect(&soon_, &QTimer::timeout, this, &WindowMemory::remember);
    connect(&window_, &QWindow::widthChanged, this, &WindowMemory::rememberSoon);
    connect(&window_, &QWindow::heightChanged, this, &WindowMemory::rememberSoon);
    connect(&window_, &QWindow::windowStateChanged, this, &WindowMemory::rememberSoon);
    connect(&sidebar_, &SidebarModel::sectionChanged, this, &WindowMemory::rememberSoon);
}

WindowMemory::~WindowMemory() {
    if (soon_.isActive()) remember();
}

void WindowMemory::restore() {
    QSize size = sizeFromText(defaults_.string(sizeKey).value_or(std::string()));
    if (!size.isValid()) size = window_.size();
    if (window_.screen() != nullptr) size = size.boundedTo(window_.screen()->availableSize());
    window_.resize(size.expandedTo(window_.minimumSize()));
    if (defaults_.boolean(maximisedKey).value_or(false))
        window_.setWindowStates(Qt::WindowMaximized);
    if (const auto section = defaults_.string(sectionKey))
        sidebar_.open(QString::fromStdString(*section));
}

void WindowMemory::rememberSoon() {
    soon_.start();
}

void WindowMemory::remember() {
    soon_.stop();
    defaults_.setString(sectionKey, sidebar_.section().toStdString());
    defaults_.setBoolean(maximisedKey, window_.windowStates().testFlag(Qt::WindowMaximized));
    // The size to come back to is that of the plain window.
    if (window_.windowStates() != Qt::WindowNoState) return;
    const QString size = QStringLiteral("%1x%2").arg(window_.width()).arg(window_.height());
    defaults_.setString(sizeKey, size.toStdString());
}

}  // namespace nookwise
