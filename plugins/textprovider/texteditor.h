#pragma once

#include <core/editorfactory.h>
#include <core/icontentoutline.h>
#include <core/ieditor.h>
#include <core/iundosource.h>

#include <QtCore/qpointer.h>
#include <QtWidgets/qplaintextedit.h>

QT_BEGIN_NAMESPACE
class QStandardItemModel;
QT_END_NAMESPACE

namespace TextProvider {

using namespace Velmora::Framework;

// The editor of a text item. It is an IEditor, so the factory keeps it and hands it back
// when the item is opened again; an IUndoSource, so the ribbon's Undo and Redo reach its
// document while it has the focus; and an IContentOutline, so the outline window lists a
// Markdown file's headings. Each interface must be listed in Q_INTERFACES: the framework
// finds them by meta-cast.
class TextEditor : public QPlainTextEdit, public IEditor, public IUndoSource,
                   public IContentOutline
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IEditor Velmora::Framework::IUndoSource
                 Velmora::Framework::IContentOutline)

public:
    explicit TextEditor(ViewItem *item);

    bool queryInterface(const char *iid, IBase **out) override;

    // IUndoSource: the document's own undo stack.
    bool canUndo() const override;
    bool canRedo() const override;
    QString undoText() const override;
    QString redoText() const override;
    void undo() override;
    void redo() override;
    void attach(Environment *environment) override;
    void detach(Environment *environment) override;

    // IContentOutline
    QAbstractItemModel *outlineModel() override;
    void goToOutline(const QModelIndex &index) override;

private:
    void updateTitle();
    void updateOutline();
    void save();

    QPointer<ViewItem> m_item;
    QPointer<Environment> m_environment;
    QStandardItemModel *m_outline;
};

class TextEditorFactory : public EditorFactory
{
    Q_OBJECT

public:
    using EditorFactory::EditorFactory;

    // The key under which the text type keeps this factory.
    QString name() const override { return tr("Text Editor"); }
    QIcon icon() const override { return QIcon(); }
    QString description() const override { return tr("Edit the file as plain text"); }
    bool supportsEmptyInstance() const override { return false; }

protected:
    QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &instructions) override;
};

} // namespace TextProvider
