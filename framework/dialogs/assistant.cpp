#include "assistant.h"

#include "core/logging_p.h"

#include <QtCore/qfileinfo.h>
#include <QtHelp/qhelpcontentwidget.h>
#include <QtHelp/qhelpengine.h>
#include <QtHelp/qhelpindexwidget.h>
#include <QtHelp/qhelplink.h>
#include <QtHelp/qhelpsearchengine.h>
#include <QtHelp/qhelpsearchquerywidget.h>
#include <QtHelp/qhelpsearchresultwidget.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qsplitter.h>
#include <QtWidgets/qstyle.h>
#include <QtWidgets/qtabwidget.h>
#include <QtWidgets/qtextbrowser.h>
#include <QtWidgets/qtoolbar.h>

namespace Velmora::Framework {

namespace {

const QLatin1String helpScheme("qthelp");

// Reads qthelp: pages, and the pictures and style sheets they refer to, from the engine.
class HelpBrowser : public QTextBrowser
{
public:
    explicit HelpBrowser(QHelpEngine *engine) : m_engine(engine) {}

    QVariant loadResource(int type, const QUrl &name) override
    {
        // Style sheets and pictures come relative to the page.
        const QUrl url = name.isRelative() ? source().resolved(name) : name;
        if (url.scheme() == helpScheme)
            return m_engine->fileData(url);
        return QTextBrowser::loadResource(type, name);
    }

private:
    QHelpEngine *m_engine;
};

} // namespace

class AssistantPrivate
{
public:
    QHelpEngine *engine = nullptr;
    bool ready = false;
    QTabWidget *sideTabs = nullptr;
    QLineEdit *indexFilter = nullptr;
    HelpBrowser *browser = nullptr;
};

Assistant::Assistant(const QString &collectionFile, QWidget *parent)
    : QWidget(parent), d(std::make_unique<AssistantPrivate>())
{
    setObjectName(QStringLiteral("Assistant"));
    setWindowTitle(tr("Help"));

    d->engine = new QHelpEngine(collectionFile, this);
    d->engine->setUsesFilterEngine(true);
    if (!QFileInfo(collectionFile).isFile()) {
        qCWarning(Internal::lcDialogs, "Assistant: the help collection %s is missing",
                  qPrintable(collectionFile));
    } else if (!d->engine->setupData()) {
        qCWarning(Internal::lcDialogs, "Assistant: the help collection %s cannot be opened: %s",
                  qPrintable(collectionFile), qPrintable(d->engine->error()));
    } else if (d->engine->registeredDocumentations().isEmpty()) {
        qCWarning(Internal::lcDialogs, "Assistant: the help collection %s holds no documentation",
                  qPrintable(collectionFile));
    } else {
        d->ready = true;
    }

    d->browser = new HelpBrowser(d->engine);
    d->browser->setObjectName(QStringLiteral("HelpBrowser"));
    d->browser->setOpenExternalLinks(true);

    auto *toolBar = new QToolBar;
    toolBar->setIconSize(QSize(16, 16));
    QAction *back = toolBar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), tr("Back"),
                                       d->browser, &QTextBrowser::backward);
    QAction *forward = toolBar->addAction(style()->standardIcon(QStyle::SP_ArrowForward),
                                          tr("Forward"), d->browser, &QTextBrowser::forward);
    toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction *home = toolBar->addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), tr("Home"),
                                       this, [this] { showPage(homePage()); });
    home->setEnabled(d->ready);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(d->browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(d->browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    auto *page = new QWidget;
    auto *pageLayout = new QVBoxLayout(page);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->setSpacing(0);
    pageLayout->addWidget(toolBar);
    pageLayout->addWidget(d->browser, 1);

    d->sideTabs = new QTabWidget;
    d->sideTabs->setObjectName(QStringLiteral("HelpNavigation"));
    if (d->ready) {
        QHelpContentWidget *contents = d->engine->contentWidget();
        contents->setHeaderHidden(true);
        connect(contents, &QHelpContentWidget::linkActivated, this, &Assistant::showPage);
        const auto followPage = [this, contents] {
            const QModelIndex index = contents->indexOf(d->browser->source());
            if (index.isValid())
                contents->setCurrentIndex(index);
        };
        connect(d->browser, &QTextBrowser::sourceChanged, contents, followPage);
        // The tree is built in the background; open it fully once it is there.
        connect(d->engine->contentModel(), &QHelpContentModel::contentsCreated, contents,
                [contents, followPage] {
                    contents->expandAll();
                    followPage();
                });
        d->sideTabs->addTab(contents, tr("Contents"));

        d->indexFilter = new QLineEdit;
        d->indexFilter->setObjectName(QStringLiteral("IndexFilter"));
        d->indexFilter->setPlaceholderText(tr("Look for"));
        d->indexFilter->setClearButtonEnabled(true);
        QHelpIndexWidget *index = d->engine->indexWidget();
        connect(d->indexFilter, &QLineEdit::textChanged, index,
                [index](const QString &text) { index->filterIndices(text); });
        // The index is built in the background too; a filter typed before applies then.
        connect(d->engine->indexModel(), &QHelpIndexModel::indexCreated, index,
                [this, index] { index->filterIndices(d->indexFilter->text()); });
        connect(d->indexFilter, &QLineEdit::returnPressed, index,
                &QHelpIndexWidget::activateCurrentItem);
        connect(index, &QHelpIndexWidget::documentActivated, this,
                [this](const QHelpLink &link) { showPage(link.url); });
        connect(index, &QHelpIndexWidget::documentsActivated, this,
                [this](const QList<QHelpLink> &links) {
                    if (!links.isEmpty())
                        showPage(links.first().url);
                });
        auto *indexTab = new QWidget;
        auto *indexLayout = new QVBoxLayout(indexTab);
        indexLayout->addWidget(d->indexFilter);
        indexLayout->addWidget(index, 1);
        d->sideTabs->addTab(indexTab, tr("Index"));

        QHelpSearchEngine *search = d->engine->searchEngine();
        QHelpSearchQueryWidget *query = search->queryWidget();
        QHelpSearchResultWidget *results = search->resultWidget();
        connect(query, &QHelpSearchQueryWidget::search, search,
                [search, query] { search->search(query->searchInput()); });
        connect(results, &QHelpSearchResultWidget::requestShowLink, this, &Assistant::showPage);
        auto *searchTab = new QWidget;
        auto *searchLayout = new QVBoxLayout(searchTab);
        searchLayout->addWidget(query);
        searchLayout->addWidget(results, 1);
        d->sideTabs->addTab(searchTab, tr("Search"));
        // The full-text index lives in the user's cache; it is built once, in the background.
        search->scheduleIndexDocumentation();
    } else {
        auto *missing = new QLabel(tr("No help is installed."));
        missing->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        missing->setMargin(6);
        missing->setEnabled(false);
        d->sideTabs->addTab(missing, tr("Contents"));
        d->browser->setHtml(tr("<h2>Help is not available</h2><p>The help collection %1 "
                               "is missing or damaged. Reinstalling the application "
                               "restores it.</p>")
                                .arg(QFileInfo(collectionFile).fileName().toHtmlEscaped()));
    }

    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(d->sideTabs);
    splitter->addWidget(page);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({260, 740});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    resize(1000, 680);

    if (d->ready)
        showPage(homePage());
}

Assistant::~Assistant() = default;

bool Assistant::isReady() const
{
    return d->ready;
}

QUrl Assistant::currentUrl() const
{
    return d->browser->source();
}

QUrl Assistant::homePage() const
{
    const QStringList namespaces = d->engine->registeredDocumentations();
    if (!d->ready || namespaces.isEmpty())
        return QUrl();
    const QList<QUrl> pages =
        d->engine->files(namespaces.first(), QString(), QStringLiteral("html"));
    for (const QUrl &page : pages) {
        if (page.fileName() == QLatin1String("index.html"))
            return page;
    }
    return pages.isEmpty() ? QUrl() : pages.first();
}

QUrl Assistant::pageFor(const QString &key) const
{
    if (!d->ready || key.isEmpty())
        return QUrl();
    const QUrl url(key);
    if (url.scheme() == helpScheme)
        return d->engine->fileData(url).isEmpty() ? QUrl() : url;
    QList<QHelpLink> links = d->engine->documentsForIdentifier(key);
    if (links.isEmpty())
        links = d->engine->documentsForKeyword(key);
    if (!links.isEmpty())
        return links.first().url;
    for (const QString &name : d->engine->registeredDocumentations()) {
        const QList<QUrl> pages = d->engine->files(name, QString(), QStringLiteral("html"));
        for (const QUrl &page : pages) {
            if (page.fileName() == key)
                return page;
        }
    }
    return QUrl();
}

bool Assistant::showAssistant(const QString &key)
{
    const QUrl page = key.isEmpty() ? homePage() : pageFor(key);
    if (page.isValid())
        showPage(page);
    else if (d->indexFilter && !key.isEmpty()) {
        d->sideTabs->setCurrentIndex(1);
        d->indexFilter->setText(key);
    }
    show();
    raise();
    activateWindow();
    return page.isValid();
}

void Assistant::showPage(const QUrl &url)
{
    if (url.isValid())
        d->browser->setSource(url);
}

} // namespace Velmora::Framework
