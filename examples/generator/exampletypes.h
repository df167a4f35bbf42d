#pragma once

// The item types of the example solution: a project kind stored in ".qprj" files, holding
// folders and files, with folders nested at will.

#include "core/typeregistrar.h"
#include "types/itemtype.h"
#include "types/itemtypefolder.h"
#include "types/itemtypeproject.h"

#include <QtCore/qstring.h>

namespace Velmora::Examples {

class ExampleFolderType : public Velmora::Framework::ItemTypeFolder
{
    Q_OBJECT

public:
    ExampleFolderType()
    {
        addChildType(QStringLiteral("example.folder"), false);
        addChildType(QStringLiteral("example.file"), false);
    }

    QString getId() const override { return QStringLiteral("example.folder"); }
};

class ExampleFileType : public Velmora::Framework::ItemType
{
    Q_OBJECT

public:
    QString getId() const override { return QStringLiteral("example.file"); }
    QString getDescription() const override { return QStringLiteral("File"); }
    QString getDefaultPrefix() const override { return QStringLiteral("New File"); }
};

class ExampleProjectType : public Velmora::Framework::ItemTypeProject
{
    Q_OBJECT

public:
    ExampleProjectType()
    {
        addChildType(QStringLiteral("example.folder"), false);
        addChildType(QStringLiteral("example.file"), false);
        setItemTypeAttributes(itemTypeAttributes() | LocationChoosable);
    }

    QString getId() const override { return QStringLiteral("example.project"); }
    QString getDescription() const override { return QStringLiteral("Example Project"); }
    QString getDefaultPrefix() const override { return QStringLiteral("Project"); }
    QString defaultExtension() const override { return QStringLiteral(".qprj"); }
    QString filter() const override { return QStringLiteral("Project files(*.qprj)"); }
    bool canHandle(const QString &path) const override
    {
        return path.endsWith(defaultExtension(), Qt::CaseInsensitive);
    }
};

// Registers the three example types; the registrar owns them.
inline void registerExampleTypes(Velmora::Framework::TypeRegistrar *registrar)
{
    registrar->registerType(new ExampleFolderType);
    registrar->registerType(new ExampleFileType);
    registrar->registerType(new ExampleProjectType);
}

} // namespace Velmora::Examples
