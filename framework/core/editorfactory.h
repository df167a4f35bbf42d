#pragma once

#include "velmoraframework_global.h"
#include "core/ieditorfactory.h"

#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class EditorFactoryPrivate;

// Base of the editor factories that plug-ins supply. It keeps at most one editor per item,
// hands it back while it lives and forgets it when the widget is destroyed. Only widgets that
// implement IEditor are kept; any other widget the hook builds is handed out untracked.
// Items are borrowed keys and never dereferenced.
class VELMORA_FRAMEWORK_EXPORT EditorFactory
    : public QObject, public IEditorFactory, public virtual IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IEditorFactory Velmora::Framework::IBase)

public:
    explicit EditorFactory(QObject *parent = nullptr);
    // Leaves the editors alive: they belong to whoever shows them unless disposed of.
    ~EditorFactory() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QWidget *createInstance(ViewItem *item, const QList<EditorInstruction> &instructions) override;
    void disposeInstance(ViewItem *item) override;
    // Null: override together with supportsEmptyInstance() to open editors without an item.
    QWidget *createEmptyInstance(QVariant argument,
                                 const QList<EditorInstruction> &instructions) override;
    // False: override where the factory can tell.
    bool queryExistingEditor(IQelProject *project, const QString &path) const override;

protected Q_SLOTS:
    // Reached from each tracked editor's destroyed(); forgets the first item (in key order)
    // whose editor it is. An override must call this one.
    virtual void aboutToDestroy(QObject *editor);

protected:
    // Builds a new editor for item. The result is tracked when its meta-cast answers
    // "IEditor.Framework.Velmora.Orvane"; null means none.
    virtual QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &instructions) = 0;

private:
    std::unique_ptr<EditorFactoryPrivate> const d;
};

} // namespace Velmora::Framework
