#pragma once

#include "core/typeregistrar.h"
#include "model/viewitem.h"
#include "types/itemtype.h"

#include <QtCore/qstring.h>

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

} // namespace Velmora::Tests
