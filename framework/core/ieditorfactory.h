#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"
#include "core/editorinstruction.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>
#include <QtGui/qicon.h>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class IQelProject;
class ViewItem;

// Makes the editor widgets in which items are opened. Item types keep factories under their
// name() and borrow them; a factory lives as long as the plug-in that registered it.
class VELMORA_FRAMEWORK_EXPORT IEditorFactory : public virtual IBase
{
public:
    ~IEditorFactory() override = default;

    // The key under which an item type keeps this factory; also the text of its action.
    virtual QString name() const = 0;
    // Icon of the factory's action; may be null.
    virtual QIcon icon() const = 0;
    // Status tip of the factory's action; empty for none.
    virtual QString description() const = 0;
    // Whether createEmptyInstance() can build an editor without an item.
    virtual bool supportsEmptyInstance() const = 0;

    // The editor of item, built on first use and then handed back (instructions are ignored
    // then); null for a null item or when nothing could be built. The widget stays the
    // factory's to dispose of; whoever shows it may still delete it.
    virtual QWidget *createInstance(ViewItem *item, const QList<EditorInstruction> &instructions) = 0;
    // Deletes item's editor, if the factory keeps one.
    virtual void disposeInstance(ViewItem *item) = 0;
    // An editor that belongs to no item; null when the factory cannot make one.
    virtual QWidget *createEmptyInstance(QVariant argument,
                                         const QList<EditorInstruction> &instructions) = 0;
    // Whether an editor is already open for the file at path in project (borrowed).
    virtual bool queryExistingEditor(IQelProject *project, const QString &path) const = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IEditorFactory, VELMORA_IID_IEDITORFACTORY)
