#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qstring.h>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ViewItem;

// The rules a new item name must pass, in their order, and the interactive rename built on
// them. Every place that lets a person rename an item goes through here.
class VELMORA_FRAMEWORK_EXPORT ItemNaming
{
    Q_DECLARE_TR_FUNCTIONS(ItemNaming)

public:
    // The message of the first rule that name breaks for item; empty when it passes: not
    // empty, fewer than 32 characters, a letter followed by letters, digits or underscores,
    // not taken (the type's existName), and acceptable to the type (canChange).
    static QString check(ViewItem *item, const QString &name);
    // Asks for the new name, shows the first broken rule in an "Error" box, and otherwise
    // writes the name through the item's model. True when the item was renamed.
    static bool rename(ViewItem *item, QWidget *parent);
};

} // namespace Velmora::Framework
