#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qstyleditemdelegate.h>

namespace Velmora::Framework {

// Paints the project view's rows and runs in-place renaming in a line edit that checks the
// name with the type's validator on Return or Enter and stays open, with an "Error" box,
// while it is not acceptable.
class VELMORA_FRAMEWORK_EXPORT ProjectDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ProjectDelegate(QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    // A line edit's text is written only when the node's type agrees (canChange).
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace Velmora::Framework
