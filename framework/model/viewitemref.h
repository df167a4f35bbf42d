#pragma once

#include "velmoraframework_global.h"
#include "model/viewitem.h"

#include <QtCore/qpointer.h>

namespace Velmora::Framework {

// A node standing for another, its target: it has a place of its own in a tree, while its
// payload, bag and editors are the target's. It never dangles: once the target is destroyed
// it reads as null. Its name and type are copied from the target when it is built or
// assigned, and are not followed afterwards.
class VELMORA_FRAMEWORK_EXPORT ViewItemRef : public ViewItem
{
    Q_OBJECT

public:
    // target is borrowed and may be null.
    explicit ViewItemRef(ViewItem *target);
    ~ViewItemRef() override;

    ViewItemRef &operator=(ViewItem &target);
    ViewItemRef &operator=(const ViewItemRef &other);

    ViewItem *item() const;
    bool isNull() const;
    // Equal when both stand for the same node or both for none.
    bool operator==(const ViewItemRef &other) const;
    bool operator==(const ViewItem &node) const;

    ItemData *getItemData() const override;
    QWidget *getEditor(const QString &editorId,
                       const QList<EditorInstruction> &instructions) override;
    ItemPropertyBag *getPropertyBag() override;

private:
    void retarget(ViewItem *target);

    QPointer<ViewItem> m_target;
};

} // namespace Velmora::Framework
