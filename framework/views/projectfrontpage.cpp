#include "views/projectfrontpage.h"

#include "core/lazyicon.h"
#include "core/logging_p.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsettings.h>
#include <QtWidgets/qcommandlinkbutton.h>
#include <QtWidgets/qfileiconprovider.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlayout.h>
#include <QtWidgets/qlistwidget.h>

#include <utility>

namespace Velmora::Framework {

namespace {
QLabel *heading(const QString &text, qreal scale, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    label->setFont(font);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return label;
}
} // namespace

class ProjectFrontPagePrivate
{
public:
    QListWidget *recent = nullptr;
    QLabel *noRecent = nullptr;
};

ProjectFrontPage::ProjectFrontPage(QWidget *parent)
    : QWidget(parent)
    , d(new ProjectFrontPagePrivate)
{
    d->recent = new QListWidget(this);
    d->noRecent = new QLabel(tr("No solution has been opened yet."), this);
    setObjectName(QStringLiteral("ProjectFrontPage"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto *newProject = new QCommandLinkButton(tr("New Project"),
                                              tr("Create a project in the current solution"), this);
    newProject->setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/newProject.svg")));
    auto *openProject = new QCommandLinkButton(tr("Open Project"),
                                               tr("Add an existing project file to the solution"),
                                               this);
    openProject->setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/openProject.svg")));
    // Command links take any height offered; the column's stretch should take it instead.
    for (QCommandLinkButton *button : {newProject, openProject})
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(newProject, &QAbstractButton::clicked, this, &ProjectFrontPage::newProjectRequested);
    connect(openProject, &QAbstractButton::clicked, this, &ProjectFrontPage::openProjectRequested);

    d->recent->setFrameShape(QFrame::NoFrame);
    d->recent->setIconSize(QSize(16, 16));
    d->recent->setSpacing(2);
    connect(d->recent, &QListWidget::itemActivated, this, [this](QListWidgetItem *item) {
        emit openSolutionRequested(item->data(Qt::UserRole).toString());
    });
    d->noRecent->setForegroundRole(QPalette::PlaceholderText);

    // Nested layouts would take the columns' wide spacing.
    auto *start = new QVBoxLayout;
    start->setSpacing(6);
    start->addWidget(heading(tr("Start"), 1.3, this));
    start->addWidget(newProject);
    start->addWidget(openProject);
    start->addStretch();

    auto *recent = new QVBoxLayout;
    recent->setSpacing(6);
    recent->addWidget(heading(tr("Recent Solutions"), 1.3, this));
    recent->addWidget(d->noRecent);
    recent->addWidget(d->recent, 1);

    auto *columns = new QHBoxLayout;
    columns->setSpacing(48);
    columns->addLayout(start, 2);
    columns->addLayout(recent, 3);

    auto *page = new QVBoxLayout(this);
    page->setContentsMargins(36, 28, 36, 28);
    page->setSpacing(20);
    page->addWidget(heading(QCoreApplication::applicationName().isEmpty()
                                ? tr("Welcome")
                                : tr("Welcome to %1").arg(QCoreApplication::applicationName()),
                            1.8, this));
    page->addLayout(columns, 1);
    refresh();
}

ProjectFrontPage::~ProjectFrontPage() = default;

QString ProjectFrontPage::recentKey()
{
    return QStringLiteral("IDE/RecentSolutions");
}

int ProjectFrontPage::maxRecent()
{
    return 10;
}

QStringList ProjectFrontPage::recentSolutions()
{
    const QVariant stored = QSettings().value(recentKey());
    if (!stored.isValid())
        return {};
    const int type = stored.userType();
    if (type != QMetaType::QStringList && type != QMetaType::QString
        && type != QMetaType::QVariantList) {
        // Read at every showing; once is enough to tell.
        static bool told = false;
        if (!std::exchange(told, true)) {
            qCWarning(Internal::lcViews,
                      "ProjectFrontPage::recentSolutions(): ignoring the unreadable value of %s",
                      qPrintable(recentKey()));
        }
        return {};
    }
    QStringList paths = stored.toStringList();
    paths.removeAll(QString());
    return paths.mid(0, maxRecent());
}

void ProjectFrontPage::addRecentSolution(const QString &path)
{
    if (path.isEmpty())
        return;
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QStringList paths = recentSolutions();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    QSettings().setValue(recentKey(), paths.mid(0, maxRecent()));
}

void ProjectFrontPage::refresh()
{
    d->recent->clear();
    QFileIconProvider icons;
    const QStringList paths = recentSolutions();
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (!info.exists())
            continue;
        auto *item = new QListWidgetItem(icons.icon(info),
                                         info.completeBaseName() + QStringLiteral("\n")
                                             + QDir::toNativeSeparators(info.absolutePath()),
                                         d->recent);
        item->setData(Qt::UserRole, path);
        item->setToolTip(QDir::toNativeSeparators(path));
    }
    d->noRecent->setVisible(d->recent->count() == 0);
    d->recent->setVisible(d->recent->count() > 0);
}

void ProjectFrontPage::showEvent(QShowEvent *event)
{
    refresh();
    QWidget::showEvent(event);
}

} // namespace Velmora::Framework
