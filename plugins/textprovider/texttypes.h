#pragma once

// The item types of the sample: a project stored in a ".qprj" file, folders, and text and
// Markdown files. Every type is registered under the identifier its getId() answers; the
// "typeid" attributes of a project file must be these identifiers.

#include <model/itemdata.h>
#include <types/itemtypefile.h>
#include <types/itemtypefolder.h>
#include <types/itemtypeproject.h>

#include <QtCore/qbytearray.h>
#include <functional>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace TextProvider {

using Velmora::Framework::ItemData;
using Velmora::Framework::ViewItem;

// The identifiers, written into project files: keep them stable once files exist.
inline constexpr char ProjectTypeId[] = "sample.project";
inline constexpr char FolderTypeId[] = "sample.folder";
inline constexpr char TextTypeId[] = "sample.text";

// A text item's payload: the document its editors share, and the bytes last read or written.
// Bytes are written back unchanged until the text is edited, so a file in another encoding
// survives being opened and saved.
class TextData : public ItemData
{
    Q_OBJECT

public:
    explicit TextData(QObject *creationContext);

    QTextDocument *document() const { return m_document; }
    void load(const QByteArray &bytes);
    // What a save writes: the stored bytes, or the edited text as UTF-8.
    QByteArray bytes() const;
    void saved(const QByteArray &bytes);

private:
    QTextDocument *m_document;
    QByteArray m_bytes;
};

// Subclasses need Q_OBJECT: types deriving from a registered type are found by class name.
class ProjectType : public Velmora::Framework::ItemTypeProject
{
    Q_OBJECT

public:
    ProjectType();

    QString getId() const override { return QLatin1String(ProjectTypeId); }
    QString getDescription() const override { return tr("Text Project"); }
    QString getDefaultPrefix() const override { return tr("Notes"); }
    QString defaultExtension() const override { return QStringLiteral(".qprj"); }
    QString filter() const override { return tr("Project files(*.qprj)"); }
    bool canHandle(const QString &path) const override;

    // The framework reads the items but not their paths: a loaded item has no path until its
    // type sets one. Every type whose items map to files must do this after reading.
    bool deserialize(ViewItem *project, QIODevice *device) override;
};

class FolderType : public Velmora::Framework::ItemTypeFolder
{
    Q_OBJECT

public:
    FolderType();

    QString getId() const override { return QLatin1String(FolderTypeId); }

    // A new folder under a placed parent is a directory beside its siblings' files, made at
    // once so that the files added to it can be saved.
    ViewItem *createItemInstance(const QString &name, QObject *parent) override;
    // The directory follows a renamed folder, and the paths of the items inside it follow.
    void nameChanged(ViewItem *item, const QString &oldName) override;
};

// Text (".txt") and Markdown (".md") files. An item's file is its name inside its folder
// chain below the project file's folder.
class TextFileType : public Velmora::Framework::ItemTypeFile
{
    Q_OBJECT

public:
    using Log = std::function<void(const QString &)>;

    explicit TextFileType(Log log);

    QString getId() const override { return QLatin1String(TextTypeId); }
    QString getDescription() const override { return tr("Text File"); }
    QString getDefaultPrefix() const override { return tr("New Text"); }
    QString defaultExtension() const override { return QStringLiteral(".txt"); }
    QString filter() const override { return tr("Text files(*.txt *.md)"); }
    bool canHandle(const QString &path) const override;

    ItemData *createDataInstance(QObject *parent) override;
    ViewItem *createItemInstance(const QString &name, QObject *parent) override;
    // The file follows a renamed item, so that the project finds it under its new name.
    void nameChanged(ViewItem *item, const QString &oldName) override;
    bool serialize(ViewItem *item, QIODevice *device) override;
    bool deserialize(ViewItem *item, QIODevice *device) override;

    // Sets the path of every item below parent from folder, parent's own folder on disk.
    static void placeChildren(ViewItem *parent, const QString &folder);

private:
    // An item's file name: its name, with the default extension unless it has one.
    QString fileNameFor(const QString &name) const;

    Log m_log;
};

} // namespace TextProvider
