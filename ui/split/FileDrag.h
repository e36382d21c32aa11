// Drags a pane's selected files, to the other pane or to another program.
#pragma once

#include "ui/split/PaneModel.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QQuickWindow>

#include <QtQml/qqmlregistration.h>

namespace nookwise {

class FileDrag : public QObject {
    Q_OBJECT
    QML_ELEMENT

  public:
    /// Begins when the events at hand have been dealt with. `picture` hangs on the pointer, which
    /// is at `hotSpot` in it, in pixels of the screen times `ratio`.
    Q_INVOKABLE void start(nookwise::PaneModel* pane, QQuickWindow* window, const QImage& picture,
                           const QPointF& hotSpot, double ratio);

  signals:
    /// The files were dropped, here or elsewhere, or nowhere.
    void ended();
};

}  // namespace nookwise
