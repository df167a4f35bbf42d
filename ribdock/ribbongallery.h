#pragma once

#include "ribdock_global.h"

#include <QtWidgets/qframe.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

namespace Velmora::Ribdock {

class RibbonGalleryPrivate;

// A framed row of large items that scrolls a row at a time; its drop-down button lists every
// item in a menu.
class RIBDOCK_EXPORT RibbonGallery : public QFrame
{
    Q_OBJECT

public:
    explicit RibbonGallery(QWidget *parent = nullptr);
    ~RibbonGallery() override;

    // The action is borrowed; its item follows it live.
    QToolButton *addItem(QAction *action);
    QList<QAction *> items() const;

    int columnCount() const;
    void setColumnCount(int columns);

    // The first row shown, 0 to the last row.
    int firstRow() const;
    void setFirstRow(int row);

private:
    std::unique_ptr<RibbonGalleryPrivate> const d;
};

} // namespace Velmora::Ribdock
