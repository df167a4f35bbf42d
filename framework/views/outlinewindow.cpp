#include "views/outlinewindow.h"

#include "core/icontentoutline.h"

#include <QtCore/qpointer.h>
#include <QtCore/qsortfilterproxymodel.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qstackedwidget.h>
#include <QtWidgets/qtreeview.h>

namespace Velmora::Framework {

class OutlineWindowPrivate
{
public:
    IContentOutline *source() const
    {
        return editor ? qobject_cast<IContentOutline *>(editor.data()) : nullptr;
    }
    void update();

    QPointer<QWidget> editor;
    QPointer<QAbstractItemModel> model;
    QSortFilterProxyModel *proxy = nullptr;
    QLineEdit *filter = nullptr;
    QTreeView *tree = nullptr;
    QLabel *none = nullptr;
    QStackedWidget *stack = nullptr;
};

void OutlineWindowPrivate::update()
{
    IContentOutline *source = this->source();
    model = source ? source->outlineModel() : nullptr;
    proxy->setSourceModel(model.data());
    stack->setCurrentWidget(model ? static_cast<QWidget *>(tree) : none);
    filter->setEnabled(model);
    if (model)
        tree->expandToDepth(0);
}

OutlineWindow::OutlineWindow(QWidget *parent)
    : QWidget(parent)
    , d(new OutlineWindowPrivate)
{
    setObjectName(QStringLiteral("OutlineWindow"));
    setWindowTitle(tr("Outline"));
    d->proxy = new QSortFilterProxyModel(this);
    d->proxy->setRecursiveFilteringEnabled(true);
    d->proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    d->filter = new QLineEdit(this);
    d->filter->setPlaceholderText(tr("Filter"));
    d->filter->setClearButtonEnabled(true);
    d->tree = new QTreeView(this);
    d->tree->setHeaderHidden(true);
    d->tree->setUniformRowHeights(true);
    d->tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    d->tree->setModel(d->proxy);
    d->none = new QLabel(tr("No outline"), this);
    d->none->setAlignment(Qt::AlignCenter);
    d->none->setForegroundRole(QPalette::PlaceholderText);
    d->stack = new QStackedWidget(this);
    d->stack->addWidget(d->none);
    d->stack->addWidget(d->tree);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(d->filter);
    layout->addWidget(d->stack, 1);

    connect(d->filter, &QLineEdit::textChanged, this, &OutlineWindow::setFilterText);
    // A click or the keyboard's activation both go there.
    const auto goTo = [this](const QModelIndex &index) {
        IContentOutline *source = d->source();
        if (source && d->model && index.isValid())
            source->goToOutline(d->proxy->mapToSource(index));
    };
    connect(d->tree, &QAbstractItemView::clicked, this, goTo);
    connect(d->tree, &QAbstractItemView::activated, this, goTo);
    d->update();
}

OutlineWindow::~OutlineWindow()
{
    if (d->editor)
        disconnect(d->editor.data(), nullptr, this, nullptr);
}

QWidget *OutlineWindow::editor() const
{
    return d->editor.data();
}

bool OutlineWindow::hasOutline() const
{
    return d->model;
}

QTreeView *OutlineWindow::treeView() const
{
    return d->tree;
}

void OutlineWindow::setEditor(QWidget *editor)
{
    if (d->editor)
        disconnect(d->editor.data(), nullptr, this, nullptr);
    d->editor = editor;
    if (editor)
        connect(editor, &QObject::destroyed, this, [this] { setEditor(nullptr); });
    d->update();
}

void OutlineWindow::setFilterText(const QString &text)
{
    if (d->filter->text() != text)
        d->filter->setText(text);
    d->proxy->setFilterFixedString(text);
    if (!text.isEmpty())
        d->tree->expandAll();
}

} // namespace Velmora::Framework
