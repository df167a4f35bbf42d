#pragma once

#include "core/ieditor.h"
#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtype.h"
#include "model/itemdata.h"
#include "model/ordereditem.h"
#include "types/itemtypefile.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qstring.h>
#include <QtWidgets/qwidget.h>

namespace Velmora::Tests {

// A concrete item type whose identity the test chooses.
class TestType : public Velmora::Framework::ItemType
{
    Q_OBJECT

public:
    explicit TestType(const QString &id, const QString &description = QString(),
                      const QString &prefix = QString())
        : m_id(id)
        , m_description(description.isEmpty() ? id : description)
        , m_prefix(prefix)
    {
    }

    QString getId() const override { return m_id; }
    QString getDescription() const override { return m_description; }
    QString getDefaultPrefix() const override { return m_prefix; }

private:
    QString m_id;
    QString m_description;
    QString m_prefix;
};

// A second class, so that tests can tell types apart by class as well as by id.
class DerivedTestType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;
};

// Records what the tree and the model ask of it, one line per call: renames, drops and the
// disposal calls for dying nodes. Its nodes carry a payload and are reset to "Untitled".
class RecordingType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    QString getDefaultName() const override { return QStringLiteral("Untitled"); }
    QString composeItemDispName(Velmora::Framework::ViewItemBase *item) const override
    {
        return QLatin1Char('<') + item->getItemName() + QLatin1Char('>');
    }
    Velmora::Framework::ItemData *createDataInstance(QObject *context) override
    {
        return new Velmora::Framework::ItemData(context);
    }
    bool doNameChange(Velmora::Framework::ViewItem *item, const QString &name) override
    {
        calls << QStringLiteral("doNameChange %1 %2").arg(item->getItemName(), name);
        return !refuseRename && TestType::doNameChange(item, name);
    }
    void nameChanged(Velmora::Framework::ViewItem *item, const QString &oldName) override
    {
        calls << QStringLiteral("nameChanged %1 %2").arg(oldName, item->getItemName());
    }
    bool performDropAction(Velmora::Framework::ViewItem *target, const QMimeData *,
                           Qt::DropAction action) override
    {
        calls << QStringLiteral("drop %1 %2").arg(target->getItemName()).arg(int(action));
        return acceptDrop;
    }
    void aboutToDispose(Velmora::Framework::ViewItem *item) override
    {
        calls << QStringLiteral("aboutToDispose ") + item->getItemName();
    }
    void disposeEditorFor(Velmora::Framework::ViewItem *item) override
    {
        calls << QStringLiteral("disposeEditorFor ") + item->getItemName();
        TestType::disposeEditorFor(item);
    }
    void disposePropertyBagFor(Velmora::Framework::ViewItem *item) override
    {
        calls << QStringLiteral("disposePropertyBagFor ") + item->getItemName();
        TestType::disposePropertyBagFor(item);
    }

    QStringList calls;
    bool refuseRename = false;
    bool acceptDrop = true;
};

// A widget that editor factories keep and hand out again, as they do real editors.
class TestEditor : public QWidget, public Velmora::Framework::IEditor
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IEditor Velmora::Framework::IBase)

public:
    bool queryInterface(const char *iid, Velmora::Framework::IBase **out) override
    {
        return Velmora::Framework::queryByMetaCast(this, iid, out);
    }
};

// A registrar with a "folder" type that accepts folders and "leaf" items, and a "leaf" type
// that accepts nothing: enough for most tree tests. The registrar owns the types.
struct TestTree
{
    TestTree()
    {
        folder->addChildType(QStringLiteral("folder"), false);
        folder->addChildType(QStringLiteral("leaf"), false);
        registrar.registerType(folder);
        registrar.registerType(leaf);
    }
    ~TestTree() { registrar.deallocateAll(); }

    Velmora::Framework::ViewItem *make(const QString &typeId, const QString &name) const
    {
        return registrar.createItem(typeId, name);
    }
    Velmora::Framework::ViewItem *folderItem(const QString &name) const
    {
        return make(QStringLiteral("folder"), name);
    }
    Velmora::Framework::ViewItem *leafItem(const QString &name) const
    {
        return make(QStringLiteral("leaf"), name);
    }

    Velmora::Framework::TypeRegistrar registrar;
    TestType *folder = new TestType(QStringLiteral("folder"), QStringLiteral("Folder"));
    TestType *leaf = new TestType(QStringLiteral("leaf"), QStringLiteral("Leaf"));
};

// A file type whose files hold the item's name. A file reading "broken" does not load; an
// item named "unwritable" writes part of its file and then fails.
class TestFileType : public Velmora::Framework::ItemTypeFile
{
    Q_OBJECT

public:
    explicit TestFileType(const QString &id = QStringLiteral("data"),
                          const QString &extension = QStringLiteral(".dat"),
                          const QString &filter = QStringLiteral("Data files (*.dat)"))
        : m_id(id)
        , m_extension(extension)
        , m_filter(filter)
    {
    }

    QString getId() const override { return m_id; }
    QString getDescription() const override { return m_id; }
    QString defaultExtension() const override { return m_extension; }
    QString filter() const override { return m_filter; }
    bool canHandle(const QString &path) const override
    {
        return path.endsWith(m_extension, Qt::CaseInsensitive);
    }
    Velmora::Framework::ItemData *createDataInstance(QObject *parent) override
    {
        return new Velmora::Framework::ItemData(parent);
    }
    bool serialize(Velmora::Framework::ViewItem *item, QIODevice *device) override
    {
        const bool fails = item->getItemName() == QStringLiteral("unwritable");
        device->write(fails ? QByteArray("partial") : item->getItemName().toUtf8());
        return !fails;
    }
    bool deserialize(Velmora::Framework::ViewItem *item, QIODevice *device) override
    {
        const QString text = QString::fromUtf8(device->readAll());
        if (text == QStringLiteral("broken"))
            return false;
        item->setItemName(text);
        return true;
    }

private:
    QString m_id;
    QString m_extension;
    QString m_filter;
};

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

inline bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The arguments of a rows signal.
inline QList<QVariant> rows(const QModelIndex &parent, int first, int last)
{
    return {QVariant::fromValue(parent), first, last};
}

// The texts of a type's context-menu entries for the item, "-" for a separator.
inline QStringList menuTexts(Velmora::Framework::ItemType *type, Velmora::Framework::ViewItem *item,
                             const QList<Velmora::Framework::ViewItem *> &selection)
{
    QList<Velmora::Framework::OrderedItem *> entries; // the type's own
    type->contextMenu(item, selection, entries);
    QStringList texts;
    for (const Velmora::Framework::OrderedItem *entry : std::as_const(entries))
        texts.append(entry->object() ? entry->text() : QStringLiteral("-"));
    return texts;
}

// Puts the process back into the folder it was in; opening and saving files move it on purpose.
class CurrentDirGuard
{
public:
    ~CurrentDirGuard() { QDir::setCurrent(m_previous); }

private:
    const QString m_previous = QDir::currentPath();
};

// "name[child,child[...]]": the names and nesting of a whole tree.
inline QString outline(const Velmora::Framework::ViewItem *item)
{
    QString text = item->getItemName();
    const int count = item->getChildItemCount();
    for (int row = 0; row < count; ++row)
        text += QLatin1String(row ? "," : "[") + outline(item->getChildItemAt(row));
    return count ? text + QLatin1Char(']') : text;
}

} // namespace Velmora::Tests
