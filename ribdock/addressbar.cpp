#include "addressbar.h"

#include "ribdocklog_p.h"

#include <QtCore/qdir.h>
#include <QtGui/qevent.h>
#include <QtGui/qfilesystemmodel.h>
#include <QtGui/qpainter.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qfiledialog.h>
#include <QtWidgets/qfileiconprovider.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qstackedlayout.h>
#include <QtWidgets/qtoolbutton.h>
#include <QtWidgets/qtreeview.h>

#include <functional>

namespace Velmora::Ribdock {

namespace {

constexpr int HistoryLimit = 32;
// Room between two crumbs for the chevron that separates them.
constexpr int CrumbGap = 12;

QString normalized(const QString &path)
{
    return path.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

// The breadcrumb: one flat button per folder from the root down, leading ones dropped when
// the bar is too narrow. A click beside the crumbs asks for the editable path.
class CrumbStrip : public QWidget
{
public:
    CrumbStrip(std::function<void(const QString &)> go, std::function<void()> edit, QWidget *parent)
        : QWidget(parent), m_go(std::move(go)), m_edit(std::move(edit))
    {
        m_layout = new QHBoxLayout(this);
        m_layout->setContentsMargins(2, 0, 2, 0);
        m_layout->setSpacing(CrumbGap);
        m_layout->addStretch(1);
        setCursor(Qt::IBeamCursor);
    }

    void setPath(const QString &path)
    {
        qDeleteAll(m_crumbs);
        m_crumbs.clear();
        QList<QPair<QString, QString>> parts; // (label, folder), leaf first
        QDir dir(path);
        while (!dir.isRoot()) {
            parts.append({dir.dirName(), dir.absolutePath()});
            if (!dir.cdUp())
                break;
        }
        QString root = QDir::toNativeSeparators(dir.absolutePath());
        if (root.size() > 1 && (root.endsWith(QLatin1Char('\\')) || root.endsWith(QLatin1Char('/'))))
            root.chop(1);
        parts.append({root, dir.absolutePath()});
        for (auto it = parts.crbegin(); it != parts.crend(); ++it) {
            auto *button = new QToolButton(this);
            button->setText(it->first);
            button->setAutoRaise(true);
            button->setFocusPolicy(Qt::NoFocus);
            button->setCursor(Qt::ArrowCursor);
            button->setToolTip(QDir::toNativeSeparators(it->second));
            const QString folder = it->second;
            QObject::connect(button, &QToolButton::clicked, this, [this, folder] { m_go(folder); });
            m_layout->insertWidget(m_layout->count() - 1, button);
            m_crumbs.append(button);
        }
        fit();
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton)
            m_edit();
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QWidget::resizeEvent(event);
        fit();
    }

    void paintEvent(QPaintEvent *) override
    {
        // Separators between the crumbs: a small chevron pointing to the next folder.
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen pen(palette().color(QPalette::PlaceholderText), 1.2);
        painter.setPen(pen);
        for (int i = 0; i + 1 < m_crumbs.size(); ++i) {
            const QToolButton *crumb = m_crumbs.at(i);
            if (crumb->isHidden())
                continue;
            const QPointF c(crumb->geometry().right() + 1 + CrumbGap / 2.0, height() / 2.0);
            painter.drawPolyline(QPolygonF({c + QPointF(-1.5, -3.5), c + QPointF(1.5, 0), c + QPointF(-1.5, 3.5)}));
        }
    }

private:
    void fit()
    {
        int total = 4;
        for (QToolButton *crumb : std::as_const(m_crumbs))
            total += crumb->sizeHint().width() + CrumbGap;
        for (int i = 0; i < m_crumbs.size(); ++i) {
            const bool hide = total > width() && i + 1 < m_crumbs.size();
            if (hide)
                total -= m_crumbs.at(i)->sizeHint().width() + CrumbGap;
            m_crumbs.at(i)->setHidden(hide);
        }
        update();
    }

    std::function<void(const QString &)> m_go;
    std::function<void()> m_edit;
    QHBoxLayout *m_layout = nullptr;
    QList<QToolButton *> m_crumbs;
};

} // namespace

class AddressBarPrivate
{
public:
    explicit AddressBarPrivate(AddressBar *q) : q(q) {}

    AddressBar *q;
    QString path;
    QStringList backward;
    QStringList forward;
    QStringList suffixes;
    QToolButton *backButton = nullptr;
    QToolButton *forwardButton = nullptr;
    QToolButton *upButton = nullptr;
    QStackedLayout *modes = nullptr;
    CrumbStrip *crumbs = nullptr;
    QLineEdit *edit = nullptr;
    QFrame *field = nullptr;
    // The folder drop-down, made when first asked for: its file-system model starts a
    // gatherer thread and reads icons, which a start of the workbench does not need.
    QFrame *popup = nullptr;
    QTreeView *tree = nullptr;
    QFileSystemModel *model = nullptr;

    QToolButton *navigationButton(const QString &icon, const QString &tip, QKeySequence key)
    {
        auto *button = new QToolButton(q);
        button->setIcon(QIcon(icon));
        button->setIconSize(QSize(16, 16));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setToolTip(tip);
        button->setShortcut(key);
        return button;
    }

    static void remember(QStringList &history, const QString &folder)
    {
        history.append(folder);
        if (history.size() > HistoryLimit)
            history.removeFirst();
    }

    void show(const QString &folder)
    {
        path = folder;
        crumbs->setPath(folder);
        edit->setText(QDir::toNativeSeparators(folder));
        if (model)
            tree->setRootIndex(model->setRootPath(folder));
        backButton->setEnabled(!backward.isEmpty());
        forwardButton->setEnabled(!forward.isEmpty());
        upButton->setEnabled(!QDir(folder).isRoot());
        emit q->pathChanged(folder);
    }

    // Moves through one history list, filling the other one.
    bool travel(QStringList &from, QStringList &to)
    {
        while (!from.isEmpty()) {
            const QString folder = from.takeLast();
            if (QFileInfo(folder).isDir()) {
                remember(to, path);
                show(folder);
                return true;
            }
        }
        backButton->setEnabled(!backward.isEmpty());
        forwardButton->setEnabled(!forward.isEmpty());
        return false;
    }

    void updateFilter()
    {
        if (!model)
            return;
        QStringList patterns;
        for (const QString &suffix : std::as_const(suffixes))
            patterns.append(QStringLiteral("*.") + suffix);
        // Without suffixes no file qualifies: folders only. Case-sensitive like the check
        // on activation, so the tree shows no file that would not open.
        const QDir::Filters folders = QDir::AllDirs | QDir::NoDotAndDotDot | QDir::CaseSensitive;
        model->setFilter(suffixes.isEmpty() ? folders : folders | QDir::Files);
        model->setNameFilters(patterns);
    }

    void setEditing(bool editing)
    {
        modes->setCurrentIndex(editing ? 1 : 0);
        if (editing) {
            edit->setText(QDir::toNativeSeparators(path));
            edit->selectAll();
            edit->setFocus(Qt::MouseFocusReason);
        }
    }

    void ensurePopup()
    {
        if (popup)
            return;
        popup = new QFrame(q, Qt::Popup);
        popup->setFrameShape(QFrame::StyledPanel);
        auto *popupLayout = new QVBoxLayout(popup);
        popupLayout->setContentsMargins(1, 1, 1, 1);
        tree = new QTreeView(popup);
        model = new QFileSystemModel(q);
        // Hide what the name filters reject instead of greying it out.
        model->setNameFilterDisables(false);
        // The style's folder and file icons where no icon theme is installed. The model does
        // not own its provider and its gatherer thread may use it until the model is gone.
        static QFileIconProvider icons;
        model->setIconProvider(&icons);
        updateFilter();
        tree->setModel(model);
        tree->setHeaderHidden(true);
        for (int column = 1; column < model->columnCount(); ++column)
            tree->hideColumn(column);
        popupLayout->addWidget(tree);
        QObject::connect(tree, &QTreeView::activated, q,
                         [this](const QModelIndex &index) { activate(index); });
        tree->setRootIndex(model->setRootPath(path));
    }

    void activate(const QModelIndex &index)
    {
        const QFileInfo info = model->fileInfo(index);
        if (info.isDir()) {
            popup->hide();
            q->setPath(info.absoluteFilePath());
        } else if (suffixes.contains(info.suffix())) {
            popup->hide();
            emit q->signalFileOpen(info.absoluteFilePath());
        }
    }
};

AddressBar::AddressBar(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<AddressBarPrivate>(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 3, 4, 3);
    layout->setSpacing(2);

    d->backButton = d->navigationButton(QStringLiteral(":/qelshared/images/16/backword.svg"),
                                        tr("Back"), QKeySequence(Qt::ALT | Qt::Key_Left));
    d->forwardButton = d->navigationButton(QStringLiteral(":/qelshared/images/16/forward.svg"),
                                           tr("Forward"), QKeySequence(Qt::ALT | Qt::Key_Right));
    d->upButton = d->navigationButton(QStringLiteral(":/qelshared/images/16/oneLevelUp.svg"),
                                      tr("Up One Level"), QKeySequence(Qt::ALT | Qt::Key_Up));
    QToolButton *browseButton = d->navigationButton(QStringLiteral(":/qelshared/images/16/browseFolders.svg"),
                                                    tr("Browse Folders"), QKeySequence());
    connect(d->backButton, &QToolButton::clicked, this, &AddressBar::back);
    connect(d->forwardButton, &QToolButton::clicked, this, &AddressBar::forward);
    connect(d->upButton, &QToolButton::clicked, this, &AddressBar::up);
    connect(browseButton, &QToolButton::clicked, this, &AddressBar::browse);
    layout->addWidget(d->backButton);
    layout->addWidget(d->forwardButton);
    layout->addWidget(d->upButton);

    // The field: breadcrumb or line edit, and the drop-down button, in one box.
    auto *field = d->field = new QFrame(this);
    field->setFrameShape(QFrame::StyledPanel);
    field->setBackgroundRole(QPalette::Base);
    field->setAutoFillBackground(true);
    auto *fieldLayout = new QHBoxLayout(field);
    fieldLayout->setContentsMargins(1, 1, 1, 1);
    fieldLayout->setSpacing(0);
    d->modes = new QStackedLayout;
    d->crumbs = new CrumbStrip([this](const QString &folder) { setPath(folder); },
                               [this] { d->setEditing(true); }, field);
    d->edit = new QLineEdit(field);
    d->edit->setFrame(false);
    d->edit->installEventFilter(this);
    d->modes->addWidget(d->crumbs);
    d->modes->addWidget(d->edit);
    fieldLayout->addLayout(d->modes, 1);
    auto *drop = new QToolButton(field);
    drop->setAutoRaise(true);
    drop->setFocusPolicy(Qt::NoFocus);
    drop->setArrowType(Qt::DownArrow);
    drop->setToolTip(tr("Folder Contents"));
    fieldLayout->addWidget(drop);
    layout->addWidget(field, 1);
    layout->addWidget(browseButton);

    connect(d->edit, &QLineEdit::returnPressed, this, [this] {
        if (setPath(d->edit->text()))
            d->setEditing(false);
        else
            d->edit->selectAll();
    });

    connect(drop, &QToolButton::clicked, this, [this] {
        d->ensurePopup();
        d->popup->resize(d->field->width(), 320);
        d->popup->move(d->field->mapToGlobal(QPoint(0, d->field->height())));
        d->popup->show();
        d->tree->setFocus();
    });

    d->show(normalized(QDir::homePath()));
}

AddressBar::~AddressBar()
{
    // Children go after d does; a focused editor loses its focus on its way out.
    d->edit->removeEventFilter(this);
}

QString AddressBar::path() const
{
    return d->path;
}

bool AddressBar::setPath(const QString &path)
{
    const QString folder = normalized(path);
    if (!QFileInfo(folder).isDir()) {
        qCWarning(Internal::lcRibdock, "AddressBar::setPath(): not a folder: %s", qPrintable(path));
        return false;
    }
    if (folder == d->path)
        return true;
    AddressBarPrivate::remember(d->backward, d->path);
    d->forward.clear();
    d->show(folder);
    return true;
}

bool AddressBar::eventFilter(QObject *watched, QEvent *event)
{
    // Escape or leaving the editor gives the breadcrumb back, unchanged.
    if (watched == d->edit) {
        const bool escape = event->type() == QEvent::KeyPress
            && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
        if (escape || event->type() == QEvent::FocusOut) {
            d->setEditing(false);
            return escape;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void AddressBar::addSuffix(const QString &suffix)
{
    QString plain = suffix;
    if (plain.startsWith(QLatin1Char('.')))
        plain.remove(0, 1);
    if (plain.isEmpty() || d->suffixes.contains(plain))
        return;
    d->suffixes.append(plain);
    d->updateFilter();
}

QStringList AddressBar::suffixes() const
{
    return d->suffixes;
}

QTreeView *AddressBar::treeView() const
{
    d->ensurePopup();
    return d->tree;
}

int AddressBar::historyLimit()
{
    return HistoryLimit;
}

bool AddressBar::canGoBack() const
{
    return !d->backward.isEmpty();
}

bool AddressBar::canGoForward() const
{
    return !d->forward.isEmpty();
}

bool AddressBar::back()
{
    return d->travel(d->backward, d->forward);
}

bool AddressBar::forward()
{
    return d->travel(d->forward, d->backward);
}

bool AddressBar::up()
{
    QDir dir(d->path);
    return dir.cdUp() && setPath(dir.absolutePath());
}

void AddressBar::browse()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Browse Folders"), d->path);
    if (!folder.isEmpty())
        setPath(folder);
}

} // namespace Velmora::Ribdock
