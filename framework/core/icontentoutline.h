#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QModelIndex;
QT_END_NAMESPACE

namespace Velmora::Framework {

// An editor that can show its structure in the outline window. Implement it in the editor
// widget and list it in the widget's Q_INTERFACES; queryInterface can answer with
// queryByMetaCast(this, iid, out).
class VELMORA_FRAMEWORK_EXPORT IContentOutline : public virtual IBase
{
public:
    ~IContentOutline() override = default;

    // The structure, borrowed; it may change at any time through its own signals. Null when
    // the editor has nothing to show now.
    virtual QAbstractItemModel *outlineModel() = 0;
    // Moves the editor to what the row at index (of outlineModel()) stands for.
    virtual void goToOutline(const QModelIndex &index) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IContentOutline, VELMORA_IID_ICONTENTOUTLINE)
