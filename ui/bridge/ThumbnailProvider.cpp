#include "ui/bridge/ThumbnailProvider.h"

#include "model/ImageExtensions.h"
#include "platform/Text.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QQuickTextureFactory>
#include <QRunnable>
#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace nookwise {
namespace {

/// As many as there are processes to make pictures at a time.
constexpr int mostAtOnce = 2;
/// A picture of this shape still fills a square without being enlarged.
constexpr int longestToShortest = 3;
/// Radius to shorter side, of a tile's small picture and of a panel's large one.
constexpr double smallCorner = 6.0 / 56.0;
constexpr double largeCorner = 12.0 / 176.0;
constexpr int largePicture = 150;
constexpr int largestSide = 1024;
/// The part of a preview that a page takes.
constexpr double pageRoom = 0.84;
/// Width to height, from which on the top of a page is shown rather than all of it.
constexpr double widePreview = 1.3;
constexpr double cutPageWidth = 0.44;

bool isPage(const FileUrl& url) {
    return lowercased(url.pathExtension()) == "pdf";
}

/// None when nothing of the kind was asked for.
FileUrl fileOf(const QString& id) {
    const auto encoded = id.section(QLatin1Char('/'), 1).toLatin1();
    const auto path = QByteArray::fromBase64(
        encoded, QByteArray::Base64UrlEncoding | QByteArray::AbortOnBase64DecodingErrors);
    return path.startsWith('/') ? FileUrl(path.toStdString()) : FileUrl();
}

/// Refers to the picture's bytes.
QImage imageOf(const Picture& picture) {
    return QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.size.width,
                  picture.size.height, picture.size.width * 4, QImage::Format_RGBA8888);
}

QImage nothing() {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// The part of the picture that has the shape of `size`.
QRectF cutToShape(const QSize& picture, const QSize& size) {
    QSizeF part = size;
    part.scale(picture, Qt::KeepAspectRatio);
    return {QPointF((picture.width() - part.width()) / 2, (picture.height() - part.height()) / 2),
            part};
}

QImage filled(const QImage& picture, const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    const int shorter = std::min(size.width(), size.height());
    const double corner = shorter * (shorter < largePicture ? smallCorner : largeCorner);
    shape.addRoundedRect(QRectF({}, size), corner, corner);
    painter.setClipPath(shape);
    painter.drawImage(QRectF({}, size), picture, cutToShape(picture.size(), size));
    return image;
}

QRect centred(const QSize& page, const QSize& size) {
    return {QPoint((size.width() - page.width()) / 2, (size.height() - page.height()) / 2), page};
}

/// Where the page is drawn, partly below the lower edge of a wide preview.
QRect placeOf(const QSize& page, const QSize& size) {
    const QRect whole = centred(page.scaled(size * pageRoom, Qt::KeepAspectRatio), size);
    const int width = qRound(size.width() * cutPageWidth);
    if (size.width() < size.height() * widePreview || whole.width() >= width) return whole;
    const int height = qRound(double(width) * page.height() / page.width());
    return {(size.width() - width) / 2, qRound(size.height() * (1 - pageRoom) / 2), width, height};
}

QImage framed(const QImage& page, const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRect place = placeOf(page.size(), size);
    painter.fillRect(place, Qt::white);
    painter.drawImage(place, page);
    painter.setPen(QColor(0, 0, 0, 40));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    return image;
}

class Response final : public QQuickImageResponse {
  public:
    QQuickTextureFactory* textureFactory() const override {
        return QQuickTextureFactory::textureFactoryForImage(image_);
    }
    void cancel() override { isWanted_ = false; }

    bool isWanted() const { return isWanted_; }
    /// From any thread, once. Told through the event loop: whoever asked listens only after the
    /// request has returned.
    void deliver(QImage image) {
        image_ = std::move(image);
        QMetaObject::invokeMethod(this, &QQuickImageResponse::finished, Qt::QueuedConnection);
    }

  private:
    std::atomic<bool> isWanted_{true};
    QImage image_ = nothing();
};

QImage thumbnail(TextReader& reader, const FileUrl& url, const QSize& size,
                 const std::stop_token& stop) {
    const auto longest = std::max(size.width(), size.height()) * longestToShortest;
    const auto read = reader.thumbnail(url, longest, stop);
    if (!read || !read.value()) return nothing();
    const auto image = imageOf(*read.value());
    return isPage(url) ? framed(image, size) : filled(image, size);
}

}  // namespace

QString thumbnailSource(const FileItem& file) {
    const auto& url = file.url;
    if (!isImageExtension(lowercased(url.pathExtension())) && !isPage(url)) return {};
    const auto changed = file.modified.value_or(Date{}).time_since_epoch().count();
    const auto path = QByteArray(url.path().data(), static_cast<qsizetype>(url.path().size()));
    return QStringLiteral("image://%1/%2/%3")
        .arg(QLatin1String(ThumbnailProvider::name), QString::number(changed, 'f', 6),
             QString::fromLatin1(
                 path.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals)));
}

ThumbnailProvider::ThumbnailProvider(TextReader& reader) : reader_(reader) {
    threads_.setMaxThreadCount(mostAtOnce);
}

ThumbnailProvider::~ThumbnailProvider() {
    stop_.request_stop();
    threads_.waitForDone();
}

QQuickImageResponse* ThumbnailProvider::requestImageResponse(const QString& id,
                                                             const QSize& requestedSize) {
    auto response = std::make_unique<Response>();
    auto* const answer = response.get();
    const QSize size = requestedSize.expandedTo({1, 1}).boundedTo({largestSide, largestSide});
    const auto url = fileOf(id);
    // The engine deletes a response only after it has finished.
    threads_.start(QRunnable::create([this, answer, size, url, stop = stop_.get_token()] {
        // Whoever scrolls by wants most of them no more.
        const bool isNeeded = answer->isWanted() && !url.empty() && !stop.stop_requested();
        answer->deliver(isNeeded ? thumbnail(reader_, url, size, stop) : nothing());
    }));
    return response.release();
}

}  // namespace nookwise
