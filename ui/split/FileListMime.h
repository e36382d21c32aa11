// Files on their way from one program to another.
#pragma once

#include "platform/FileUrl.h"

#include <QByteArray>
#include <QMimeData>
#include <vector>

namespace nookwise {

/// Escaped addresses, a line each, so that names that are not UTF-8 survive.
QByteArray fileList(const std::vector<FileUrl>& files);

/// The local files among the lines, in order, each once; comments, other addresses and paths with
/// ".." are passed by.
std::vector<FileUrl> filesIn(const QByteArray& list);

/// The local files that something on its way consists of; none when it is something else.
std::vector<FileUrl> filesIn(const QMimeData& data);

/// Files that are dragged out of this application, which finds them again by this type.
class FileListMime : public QMimeData {
    Q_OBJECT

  public:
    explicit FileListMime(std::vector<FileUrl> files) : files_(std::move(files)) {}

    const std::vector<FileUrl>& files() const { return files_; }

    QStringList formats() const override;
    bool hasFormat(const QString& format) const override;

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override;

  private:
    std::vector<FileUrl> files_;
};

}  // namespace nookwise
