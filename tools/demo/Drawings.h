// Pictures and documents with text in them, drawn on the spot.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QStringList>
#include <cstdint>

namespace nookwise::demo {

/// All of them need a QGuiApplication, for its fonts. The same arguments give the same picture.
/// What follows a tab in a line stands at the right.

QImage receipt(const QString& shop, const QStringList& lines, const QString& total);
/// A handwritten-looking note on coloured paper.
QImage note(const QString& title, const QStringList& lines);
QImage slide(const QString& title, const QStringList& points, int number);
/// A window of some other program, as a screenshot shows it.
QImage windowShot(const QString& title, const QStringList& lines);
/// Hills under a sky, with a photograph's grain.
QImage landscape(std::uint32_t seed);

QByteArray jpeg(const QImage& image);
/// `software` becomes the picture's own text key of that name; none when empty.
QByteArray png(const QImage& image, const QString& software = {});

/// One page of A4 with a letterhead and lines of text.
QByteArray letter(const QString& title, const QStringList& lines);
/// A page of A4 for each picture, with its number.
QByteArray catalogue(const QString& title, const QList<QImage>& pictures);

}  // namespace nookwise::demo
