#include "texttypes.h"

#include <model/viewitem.h>

#include <QtCore/qdir.h>
#include <QtCore/qfiledevice.h>
#include <QtCore/qfileinfo.h>
#include <QtGui/qtextdocument.h>
#include <QtWidgets/qplaintextedit.h>

namespace TextProvider {

namespace {

QString fileNameOf(QIODevice *device)
{
    auto *file = qobject_cast<QFileDevice *>(device);
    return file ? file->fileName() : QString();
}

// The folder on disk that parent's children live in: a project's file's folder, or a
// folder item's own path.
QString folderOf(ViewItem *parent)
{
    const QString path = parent ? parent->getItemPath() : QString();
    if (path.isEmpty() || !qobject_cast<ProjectType *>(parent->getType()))
        return path;
    return QFileInfo(path).absolutePath();
}

// Moves a renamed item's file or folder to fileName beside it. One not written yet only
// changes its path; one that cannot move keeps its path, so nothing on disk is lost.
bool followName(ViewItem *item, const QString &fileName)
{
    const QString oldPath = item->getItemPath();
    if (oldPath.isEmpty())
        return false;
    const QString newPath = QFileInfo(oldPath).dir().filePath(fileName);
    if (QFileInfo::exists(oldPath) && !QDir().rename(oldPath, newPath)) {
        qWarning("Could not rename %s to %s", qPrintable(QDir::toNativeSeparators(oldPath)),
                 qPrintable(QDir::toNativeSeparators(newPath)));
        return false;
    }
    item->setItemPath(newPath);
    return true;
}

} // namespace

TextData::TextData(QObject *creationContext)
    : ItemData(creationContext)
    , m_document(new QTextDocument(this))
{
    // QPlainTextEdit shows only documents with its own layout.
    m_document->setDocumentLayout(new QPlainTextDocumentLayout(m_document));
}

void TextData::load(const QByteArray &bytes)
{
    m_bytes = bytes;
    m_document->setPlainText(QString::fromUtf8(bytes));
    m_document->clearUndoRedoStacks();
    m_document->setModified(false);
}

QByteArray TextData::bytes() const
{
    return m_document->isModified() ? m_document->toPlainText().toUtf8() : m_bytes;
}

void TextData::saved(const QByteArray &bytes)
{
    m_bytes = bytes;
    m_document->setModified(false);
}

ProjectType::ProjectType()
{
    // Child types are named by identifier; true would also admit every registered type
    // that implements that interface or derives from that type's class.
    addChildType(QLatin1String(FolderTypeId), false);
    addChildType(QLatin1String(TextTypeId), false);
    setItemTypeAttributes(itemTypeAttributes() | LocationChoosable);
}

bool ProjectType::canHandle(const QString &path) const
{
    return path.endsWith(defaultExtension(), Qt::CaseInsensitive);
}

bool ProjectType::deserialize(ViewItem *project, QIODevice *device)
{
    if (!ItemTypeProject::deserialize(project, device))
        return false;
    // The project's own path is set only after this returns: take it from the device.
    const QString file = fileNameOf(device);
    if (!file.isEmpty())
        TextFileType::placeChildren(project, QFileInfo(file).absolutePath());
    return true;
}

FolderType::FolderType()
{
    addChildType(QLatin1String(FolderTypeId), false);
    addChildType(QLatin1String(TextTypeId), false);
}

ViewItem *FolderType::createItemInstance(const QString &name, QObject *parent)
{
    ViewItem *item = ItemTypeFolder::createItemInstance(name, parent);
    const QString folder = folderOf(qobject_cast<ViewItem *>(parent));
    if (item && !folder.isEmpty() && !name.isEmpty()) {
        const QString path = QDir(folder).filePath(name);
        QDir().mkpath(path);
        item->setItemPath(path);
    }
    return item;
}

void FolderType::nameChanged(ViewItem *item, const QString &oldName)
{
    if (item && followName(item, item->getItemName()))
        TextFileType::placeChildren(item, item->getItemPath());
    ItemTypeFolder::nameChanged(item, oldName);
}

TextFileType::TextFileType(Log log)
    : m_log(std::move(log))
{
    // Files are renamed in the project view like folders; nameChanged() moves the file.
    setDefMenus(defMenus() | RenameMenu);
}

QString TextFileType::fileNameFor(const QString &name) const
{
    return canHandle(name) ? name : name + defaultExtension();
}

bool TextFileType::canHandle(const QString &path) const
{
    return path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive)
        || path.endsWith(QLatin1String(".md"), Qt::CaseInsensitive);
}

ItemData *TextFileType::createDataInstance(QObject *parent)
{
    return new TextData(parent);
}

ViewItem *TextFileType::createItemInstance(const QString &name, QObject *parent)
{
    ViewItem *item = ItemTypeFile::createItemInstance(name, parent);
    // A new item under a placed parent gets its file's path at once, so Save does not ask.
    const QString folder = folderOf(qobject_cast<ViewItem *>(parent));
    if (item && !folder.isEmpty() && !name.isEmpty())
        item->setItemPath(QDir(folder).filePath(fileNameFor(name)));
    return item;
}

void TextFileType::nameChanged(ViewItem *item, const QString &oldName)
{
    if (item)
        followName(item, fileNameFor(item->getItemName()));
    ItemTypeFile::nameChanged(item, oldName);
}

void TextFileType::placeChildren(ViewItem *parent, const QString &folder)
{
    for (int row = 0; row < parent->getChildItemCount(); ++row) {
        ViewItem *child = parent->getChildItemAt(row);
        auto *text = qobject_cast<TextFileType *>(child->getType());
        const QString name = child->getItemName();
        if (text) {
            child->setItemPath(QDir(folder).filePath(text->fileNameFor(name)));
        } else if (qobject_cast<FolderType *>(child->getType())) {
            child->setItemPath(QDir(folder).filePath(name));
            placeChildren(child, child->getItemPath());
        }
    }
}

bool TextFileType::serialize(ViewItem *item, QIODevice *device)
{
    auto *data = item ? qobject_cast<TextData *>(item->getItemData()) : nullptr;
    if (!data || !device)
        return false;
    // Never opened: carry the file's bytes over rather than writing an empty file.
    if (!data->isLoaded() && !item->getItemPath().isEmpty()) {
        QFile source(item->getItemPath());
        if (source.open(QIODevice::ReadOnly))
            data->load(source.readAll());
    }
    const QByteArray bytes = data->bytes();
    if (device->write(bytes) != bytes.size())
        return false;
    data->saved(bytes);
    m_log(tr("Saved %1").arg(QDir::toNativeSeparators(fileNameOf(device))));
    return true;
}

bool TextFileType::deserialize(ViewItem *item, QIODevice *device)
{
    auto *data = item ? qobject_cast<TextData *>(item->getItemData()) : nullptr;
    if (!data || !device)
        return false;
    data->load(device->readAll());
    m_log(tr("Opened %1").arg(QDir::toNativeSeparators(fileNameOf(device))));
    return true;
}

} // namespace TextProvider
