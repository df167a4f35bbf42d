#include "texteditor.h"

#include "texttypes.h"

#include <model/viewitem.h>
#include <shell/environment.h>

#include <QtCore/qregularexpression.h>
#include <QtGui/qaction.h>
#include <QtGui/qfontdatabase.h>
#include <QtGui/qstandarditemmodel.h>
#include <QtGui/qtextobject.h>

namespace TextProvider {

namespace {

constexpr int BlockRole = Qt::UserRole + 1;

} // namespace

TextEditor::TextEditor(ViewItem *item)
    : m_item(item)
    , m_outline(new QStandardItemModel(this))
{
    auto *data = qobject_cast<TextData *>(item->getItemData());
    setDocument(data->document());
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setWindowIcon(item->getIcon(0)); // the document tab's icon

    // Ctrl+S saves the item through its type, as the context menu's Save does.
    auto *save = new QAction(tr("Save"), this);
    save->setShortcut(QKeySequence::Save);
    save->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(save);
    connect(save, &QAction::triggered, this, &TextEditor::save);

    connect(document(), &QTextDocument::modificationChanged, this, [this](bool modified) {
        if (m_item && m_item->getItemData())
            m_item->getItemData()->setDirty(modified);
        updateTitle();
    });
    const auto stackChanged = [this] {
        if (m_environment)
            m_environment->updateCommandStack(this);
    };
    connect(document(), &QTextDocument::undoAvailable, this, stackChanged);
    connect(document(), &QTextDocument::redoAvailable, this, stackChanged);
    connect(document(), &QTextDocument::contentsChanged, this, &TextEditor::updateOutline);
    updateTitle();
    updateOutline();
}

bool TextEditor::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool TextEditor::canUndo() const
{
    return document()->isUndoAvailable();
}

bool TextEditor::canRedo() const
{
    return document()->isRedoAvailable();
}

QString TextEditor::undoText() const
{
    return tr("Typing");
}

QString TextEditor::redoText() const
{
    return tr("Typing");
}

void TextEditor::undo()
{
    document()->undo();
}

void TextEditor::redo()
{
    document()->redo();
}

void TextEditor::attach(Environment *environment)
{
    m_environment = environment;
}

void TextEditor::detach(Environment *)
{
    m_environment = nullptr;
}

QAbstractItemModel *TextEditor::outlineModel()
{
    return m_outline;
}

void TextEditor::goToOutline(const QModelIndex &index)
{
    const QTextBlock block = document()->findBlockByNumber(index.data(BlockRole).toInt());
    if (!block.isValid())
        return;
    setTextCursor(QTextCursor(block));
    centerCursor();
    setFocus();
}

void TextEditor::updateTitle()
{
    const QString name = m_item ? m_item->getItemName() : QString();
    setWindowTitle(document()->isModified() ? name + QLatin1Char('*') : name);
}

// Markdown headings ("#" to "######"), nested by level; plain text files have none.
void TextEditor::updateOutline()
{
    m_outline->clear();
    if (!m_item || !m_item->getItemName().endsWith(QLatin1String(".md"), Qt::CaseInsensitive))
        return;
    static const QRegularExpression heading(QStringLiteral("^(#{1,6})\\s+(.*\\S)"));
    QList<QStandardItem *> parents{m_outline->invisibleRootItem()};
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QRegularExpressionMatch match = heading.match(block.text());
        if (!match.hasMatch())
            continue;
        const int level = int(match.capturedLength(1));
        auto *entry = new QStandardItem(match.captured(2));
        entry->setData(block.blockNumber(), BlockRole);
        while (parents.size() > level)
            parents.removeLast();
        parents.last()->appendRow(entry);
        parents.append(entry);
    }
}

void TextEditor::save()
{
    auto *type = m_item ? qobject_cast<ItemTypeFile *>(m_item->getType()) : nullptr;
    if (type)
        type->save(QList<ViewItem *>{m_item.data()});
}

QWidget *TextEditorFactory::createEditor(ViewItem *item, const QList<EditorInstruction> &)
{
    auto *type = item ? qobject_cast<TextFileType *>(item->getType()) : nullptr;
    auto *data = item ? qobject_cast<TextData *>(item->getItemData()) : nullptr;
    if (!type || !data)
        return nullptr;
    // An item of a project is read on first opening.
    if (!data->isLoaded() && !item->getItemPath().isEmpty())
        type->open(QList<ViewItem *>{item});
    return new TextEditor(item);
}

} // namespace TextProvider
