// Small pictures of files for the screens, made without decoding anything here.
#pragma once

#include "model/FileItem.h"
#include "platform/TextReader.h"

#include <QQuickAsyncImageProvider>
#include <QThreadPool>
#include <stop_token>

namespace nookwise {

/// Where the window finds the picture of a file; empty for a file that has none. Another one when
/// the file has been changed, so that it is drawn anew.
QString thumbnailSource(const FileItem& file);

/// Fills the size that is asked for, cut to its shape, with rounded corners; a page stands whole
/// in its middle. A file without a picture gives a transparent one of a single pixel, because an
/// error would be written to the terminal for each.
class ThumbnailProvider : public QQuickAsyncImageProvider {
  public:
    static constexpr auto name = "thumbnail";

    /// `reader` must outlive this.
    explicit ThumbnailProvider(TextReader& reader);
    /// Ends what is being read.
    ~ThumbnailProvider() override;

    QQuickImageResponse* requestImageResponse(const QString& id,
                                              const QSize& requestedSize) override;

  private:
    TextReader& reader_;
    std::stop_source stop_;
    QThreadPool threads_;
};

}  // namespace nookwise
