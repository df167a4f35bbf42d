#include "views/projectdelegate.h"

#include "core/prompts.h"
#include "model/viewitem.h"
#include "types/itemtype.h"

#include <QtGui/qevent.h>
#include <QtGui/qvalidator.h>
#include <QtWidgets/qlineedit.h>

namespace Velmora::Framework {

namespace {
ViewItem *nodeOf(const QModelIndex &index)
{
    return index.isValid() ? static_cast<ViewItem *>(index.internalPointer()) : nullptr;
}
} // namespace

ProjectDelegate::ProjectDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

QWidget *ProjectDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    ViewItem *node = nodeOf(index);
    ItemType *type = node ? node->getType() : nullptr;
    if (!type)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    // Without a validator of the type's, its canChange alone decides when the name is written.
    editor->setValidator(type->nameValidator(node));
    return editor;
}

void ProjectDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (!line) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
}

void ProjectDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                   const QModelIndex &index) const
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (!line) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    ViewItem *node = nodeOf(index);
    ItemType *type = node ? node->getType() : nullptr;
    const QString text = line->text();
    if (type && type->canChange(node, text, ItemType::NameAspect))
        model->setData(index, text, Qt::EditRole);
}

QSize ProjectDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // Room for the 16-pixel icon and a line edit that does not clip its text.
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), 22));
    return size;
}

bool ProjectDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *line = qobject_cast<QLineEdit *>(object);
    if (!line || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QStyledItemDelegate::eventFilter(object, event);

    const QString typed = line->text();
    QString text = typed;
    int position = line->cursorPosition();
    const QValidator *validator = line->validator();
    QValidator::State state = validator ? validator->validate(text, position)
                                        : QValidator::Acceptable;
    if (state == QValidator::Intermediate) {
        validator->fixup(text);
        state = validator->validate(text, position);
    }
    if (state != QValidator::Acceptable) {
        line->selectAll();
        line->setFocus();
        Prompts::critical(line, tr("Error"),
                          tr("The name") + QLatin1Char(' ') + QLatin1Char('"') + typed
                              + QLatin1Char('"')
                              + tr(" is no available. It may be due to a duplicate name or an "
                                   "invalid name."));
        return true;
    }
    if (text != typed)
        line->setText(text);
    emit commitData(line);
    emit closeEditor(line, QAbstractItemDelegate::NoHint);
    return true;
}

} // namespace Velmora::Framework
