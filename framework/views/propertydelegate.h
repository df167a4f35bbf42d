#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qstyleditemdelegate.h>

#include <memory>

namespace Velmora::Framework {

class PropertyDelegatePrivate;

// Edits property values with Qt's item editors, plus editors for colours, fonts, points,
// sizes, rectangles and enumerations (cursors among them), which Qt's factory lacks.
class VELMORA_FRAMEWORK_EXPORT PropertyDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PropertyDelegate(QObject *parent = nullptr);
    ~PropertyDelegate() override;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    std::unique_ptr<PropertyDelegatePrivate> const d;
};

} // namespace Velmora::Framework
