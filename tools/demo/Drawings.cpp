#include "tools/demo/Drawings.h"

#include <QBuffer>
#include <QFont>
#include <QLinearGradient>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <random>

namespace nookwise::demo {
namespace {

constexpr QColor ink{38, 36, 30};

QFont font(int pixels, QFont::Weight weight = QFont::Normal) {
    QFont result(QStringLiteral("Inter"));
    result.setStyleHint(QFont::SansSerif);
    result.setPixelSize(pixels);
    result.setWeight(weight);
    return result;
}

QImage paper(QSize size, const QColor& colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// What follows a tab in a line ends at `right`. Returns the baseline after the last line.
int drawLines(QPainter& painter, const QStringList& lines, QPoint at, int right, int pixels) {
    painter.setFont(font(pixels));
    for (const auto& line : lines) {
        painter.drawText(at, line.section('\t', 0, 0));
        const auto figure = line.section('\t', 1);
        painter.drawText(right - painter.fontMetrics().horizontalAdvance(figure), at.y(), figure);
        at.ry() += pixels * 3 / 2;
    }
    return at.y();
}

void addGrain(QImage& image, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grain = static_cast<int>(random() % 17) - 8;
            const auto shifted = [grain](int channel) {
                return std::clamp(channel + grain, 0, 255);
            };
            line[x] =
                qRgb(shifted(qRed(line[x])), shifted(qGreen(line[x])), shifted(qBlue(line[x])));
        }
    }
}

void drawHill(QPainter& painter, const QSize& size, double height, double phase,
              const QColor& colour) {
    QPainterPath hill;
    hill.moveTo(0, size.height());
    for (int x = 0; x <= size.width(); x += 8) {
        const double across = static_cast<double>(x) / size.width();
        hill.lineTo(x, size.height() * (height + 0.06 * std::sin(6.0 * across + phase)));
    }
    hill.lineTo(size.width(), size.height());
    painter.fillPath(hill, colour);
}

QByteArray encoded(const QImage& image, const char* format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes;
}

/// Calls `draw` with a painter on the first page; units are 1/72 inch.
template <typename Draw>
QByteArray document(const QString& title, const Draw& draw) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(72);
    QPainter painter(&writer);
    draw(writer, painter);
    painter.end();
    return bytes;
}

}  // namespace

QImage receipt(const QString& shop, const QStringList& lines, const QString& total) {
    auto image = paper({720, 1080}, {250, 248, 242});
    QPainter painter(&image);
    painter.setPen(ink);
    painter.setFont(font(44, QFont::DemiBold));
    painter.drawText(60, 110, shop);
    const int end = drawLines(painter, lines, {60, 220}, 660, 30);
    painter.drawLine(60, end, 660, end);
    drawLines(painter, {QStringLiteral("Total\t") + total}, {60, end + 70}, 660, 38);
    painter.end();
    addGrain(image, 11);
    return image;
}

QImage note(const QString& title, const QStringList& lines) {
    auto image = paper({1000, 700}, {255, 240, 190});
    QPainter painter(&image);
    painter.setPen(ink);
    painter.setFont(font(56, QFont::DemiBold));
    painter.drawText(70, 130, title);
    drawLines(painter, lines, {70, 240}, 930, 42);
    return image;
}

QImage slide(const QString& title, const QStringList& points, int number) {
    auto image = paper({1600, 900}, {244, 248, 246});
    QPainter painter(&image);
    painter.fillRect(0, 0, 1600, 24, QColor(24, 97, 78));
    painter.setPen(ink);
    painter.setFont(font(72, QFont::DemiBold));
    painter.drawText(110, 190, title);
    QStringList bulleted;
    for (const auto& point : points) bulleted << QStringLiteral("•  ") + point;
    drawLines(painter, bulleted, {110, 330}, 1490, 46);
    painter.setFont(font(28));
    painter.drawText(1490, 860, QString::number(number));
    return image;
}

QImage windowShot(const QString& title, const QStringList& lines) {
    auto image = paper({1440, 900}, {205, 216, 222});
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(120, 90, 1200, 720, 16, 16);
    painter.setBrush(QColor(236, 238, 240));
    painter.drawRoundedRect(120, 90, 1200, 64, 16, 16);
    painter.setPen(ink);
    painter.setFont(font(28, QFont::DemiBold));
    painter.drawText(QRect(120, 90, 1200, 64), Qt::AlignCenter, title);
    drawLines(painter, lines, {180, 240}, 1260, 32);
    return image;
}

QImage landscape(std::uint32_t seed) {
    const QSize size(1200, 800);
    auto image = paper(size, Qt::white);
    const int hue = static_cast<int>(seed % 2 == 0 ? 195 + seed % 30 : 15 + seed % 35);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor::fromHsv(hue, 70, 235));
    sky.setColorAt(0.7, QColor::fromHsv(hue, 30, 250));
    painter.fillRect(image.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int layer = 0; layer < 4; ++layer) {
        const auto colour = QColor::fromHsv(100 + static_cast<int>(seed * 23 % 180),
                                            60 + 25 * layer, 190 - 40 * layer);
        drawHill(painter, size, 0.5 + 0.12 * layer, seed * 1.7 + layer * 2.1, colour);
    }
    painter.end();
    addGrain(image, seed);
    return image;
}

QByteArray jpeg(const QImage& image) {
    return encoded(image, "JPEG", 88);
}

QByteArray png(const QImage& image, const QString& software) {
    if (software.isEmpty()) return encoded(image, "PNG", -1);
    auto marked = image;
    marked.setText(QStringLiteral("Software"), software);
    return encoded(marked, "PNG", -1);
}

QByteArray letter(const QString& title, const QStringList& lines) {
    return document(title, [&](QPdfWriter&, QPainter& painter) {
        painter.setPen(ink);
        painter.setFont(font(22, QFont::DemiBold));
        painter.drawText(30, 60, title);
        drawLines(painter, lines, {30, 120}, 480, 12);
    });
}

QByteArray catalogue(const QString& title, const QList<QImage>& pictures) {
    return document(title, [&](QPdfWriter& writer, QPainter& painter) {
        int number = 0;
        for (const auto& picture : pictures) {
            if (number++ > 0) writer.newPage();
            painter.setPen(ink);
            painter.setFont(font(18, QFont::DemiBold));
            painter.drawText(30, 50, QStringLiteral("%1, plate %2").arg(title).arg(number));
            painter.drawImage(QRect(30, 80, 480, 320), picture);
        }
    });
}

}  // namespace nookwise::demo
