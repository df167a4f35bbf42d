#include "optionsdialog.h"

#include "core/logging_p.h"
#include "core/prompts.h"
#include "dialogs/optionpage.h"
#include "dialogs/settingsvalue_p.h"

#include <QtCore/qhash.h>
#include <QtCore/qpointer.h>
#include <QtCore/qsettings.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qframe.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qsplitter.h>
#include <QtWidgets/qstackedwidget.h>
#include <QtWidgets/qtreewidget.h>

namespace Velmora::Framework {

class OptionsDialogPrivate
{
public:
    QTreeWidgetItem *topItemFor(const OptionTopItem &topItem);
    OptionPage *pageOf(const QTreeWidgetItem *item) const { return pageByItem.value(item); }
    OptionPage *chosenPage() const;
    void showPage(OptionPage *page);

    QPointer<QSettings> settings;
    QTreeWidget *tree = nullptr;
    QLabel *pageTitle = nullptr;
    QStackedWidget *stack = nullptr;
    // The stack's first widget, current while no page is chosen. With it, pages added to a
    // hidden dialog stay hidden: showing a page polishes and lays it out, which waits until
    // the dialog is shown.
    QWidget *noPage = nullptr;
    QPushButton *applyButton = nullptr;
    QHash<const OptionPage *, QTreeWidgetItem *> itemByPage;
    QHash<const QTreeWidgetItem *, OptionPage *> pageByItem;
};

QTreeWidgetItem *OptionsDialogPrivate::topItemFor(const OptionTopItem &topItem)
{
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = tree->topLevelItem(i);
        if (item->text(0) == topItem.title())
            return item;
    }
    auto *item = new QTreeWidgetItem(tree, QStringList(topItem.title()));
    item->setIcon(0, topItem.icon());
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setExpanded(true);
    return item;
}

OptionPage *OptionsDialogPrivate::chosenPage() const
{
    QTreeWidgetItem *item = tree->currentItem();
    // A top item shows its first page.
    if (item && !pageOf(item) && item->childCount() > 0)
        item = item->child(0);
    return item ? pageOf(item) : nullptr;
}

void OptionsDialogPrivate::showPage(OptionPage *page)
{
    stack->setCurrentWidget(page ? static_cast<QWidget *>(page) : noPage);
}

OptionsDialog::OptionsDialog(QWidget *parent)
    : QDialog(parent), d(std::make_unique<OptionsDialogPrivate>())
{
    setObjectName(QStringLiteral("OptionsDialog"));
    setWindowTitle(tr("Options"));

    d->tree = new QTreeWidget;
    d->tree->setObjectName(QStringLiteral("OptionTree"));
    d->tree->setHeaderHidden(true);
    d->tree->setRootIsDecorated(true);
    d->tree->setMinimumWidth(180);

    d->pageTitle = new QLabel;
    QFont titleFont = d->pageTitle->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.2);
    d->pageTitle->setFont(titleFont);
    auto *rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    d->stack = new QStackedWidget;
    d->noPage = new QWidget;
    d->stack->addWidget(d->noPage);

    auto *right = new QWidget;
    auto *rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(8, 0, 0, 0);
    rightLayout->addWidget(d->pageTitle);
    rightLayout->addWidget(rule);
    rightLayout->addWidget(d->stack, 1);

    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(d->tree);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({200, 520});

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                         | QDialogButtonBox::Apply);
    d->applyButton = buttons->button(QDialogButtonBox::Apply);
    d->applyButton->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);
    connect(d->applyButton, &QPushButton::clicked, this, &OptionsDialog::apply);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(buttons);
    resize(760, 520);

    connect(d->tree, &QTreeWidget::currentItemChanged, this, [this] {
        OptionPage *page = d->chosenPage();
        d->pageTitle->setText(page ? page->title() : QString());
        if (isVisible())
            d->showPage(page);
    });
}

OptionsDialog::~OptionsDialog()
{
    // The pages die with the stack after d is gone; their destroyed() must not reach us then.
    for (OptionPage *page : pages())
        disconnect(page, nullptr, this, nullptr);
}

void OptionsDialog::setSettings(QSettings *settings)
{
    d->settings = settings;
}

bool OptionsDialog::registerOptionPage(const OptionTopItem &topItem, OptionPage *page)
{
    if (!page) {
        qCWarning(Internal::lcDialogs, "OptionsDialog::registerOptionPage(): null page");
        return false;
    }
    if (!topItem.isValid()) {
        qCWarning(Internal::lcDialogs,
                  "OptionsDialog::registerOptionPage(): top item without a title");
        return false;
    }
    if (d->itemByPage.contains(page)) {
        qCWarning(Internal::lcDialogs,
                  "OptionsDialog::registerOptionPage(): page %s already registered",
                  qPrintable(page->title()));
        return false;
    }
    auto *item = new QTreeWidgetItem(d->topItemFor(topItem), QStringList(page->title()));
    item->setIcon(0, page->windowIcon());
    d->itemByPage.insert(page, item);
    d->pageByItem.insert(item, page);
    d->stack->addWidget(page);
    // A provider may delete its page itself; the tree must not keep pointing at it.
    // By then only its QObject part is left, so the pointer is kept, not cast back.
    connect(page, &QObject::destroyed, this, [this, page] { removePage(page); });
    connect(page, &OptionPage::changed, this, [this] { d->applyButton->setEnabled(true); });
    if (isVisible())
        Internal::withSettings(d->settings, [page](QSettings &settings) { page->load(settings); });
    if (!d->tree->currentItem())
        d->tree->setCurrentItem(item);
    return true;
}

bool OptionsDialog::unregisterOptionPage(OptionPage *page)
{
    if (!page || !d->itemByPage.contains(page)) {
        qCWarning(Internal::lcDialogs,
                  "OptionsDialog::unregisterOptionPage(): page not registered");
        return false;
    }
    disconnect(page, nullptr, this, nullptr);
    removePage(page);
    d->stack->removeWidget(page);
    page->setParent(nullptr);
    return true;
}

void OptionsDialog::unregisterAll()
{
    const QList<OptionPage *> all = pages();
    for (OptionPage *page : all) {
        disconnect(page, nullptr, this, nullptr);
        removePage(page);
        delete page;
    }
}

// Forgets page without touching it: it may be half destroyed.
void OptionsDialog::removePage(OptionPage *page)
{
    QTreeWidgetItem *item = d->itemByPage.take(page);
    if (!item)
        return;
    d->pageByItem.remove(item);
    QTreeWidgetItem *top = item->parent();
    delete item;
    if (top && top->childCount() == 0)
        delete top;
}

QList<OptionPage *> OptionsDialog::pages() const
{
    QList<OptionPage *> result;
    for (int i = 0; i < d->tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *top = d->tree->topLevelItem(i);
        for (int j = 0; j < top->childCount(); ++j)
            result.append(d->pageOf(top->child(j)));
    }
    return result;
}

OptionPage *OptionsDialog::currentPage() const
{
    return d->chosenPage();
}

void OptionsDialog::setCurrentPage(OptionPage *page)
{
    if (QTreeWidgetItem *item = d->itemByPage.value(page))
        d->tree->setCurrentItem(item);
}

bool OptionsDialog::apply()
{
    const QList<OptionPage *> all = pages();
    const bool saved = Internal::withSettings(d->settings, [&](QSettings &settings) {
        for (OptionPage *page : all) {
            if (!page->save(settings)) {
                setCurrentPage(page);
                return false;
            }
        }
        settings.sync();
        if (settings.status() != QSettings::NoError) {
            qCWarning(Internal::lcDialogs,
                      "OptionsDialog::apply(): the settings could not be written to %s",
                      qPrintable(settings.fileName()));
            Prompts::critical(this, tr("Error"),
                              tr("The options could not be saved to %1.").arg(settings.fileName()));
            return false;
        }
        return true;
    });
    if (saved)
        d->applyButton->setEnabled(false);
    return saved;
}

void OptionsDialog::accept()
{
    if (apply())
        QDialog::accept();
}

void OptionsDialog::setVisible(bool visible)
{
    if (visible)
        d->showPage(d->chosenPage());
    QDialog::setVisible(visible);
}

void OptionsDialog::showEvent(QShowEvent *event)
{
    Internal::withSettings(d->settings, [this](QSettings &settings) {
        for (OptionPage *page : pages())
            page->load(settings);
        return true;
    });
    d->applyButton->setEnabled(false);
    QDialog::showEvent(event);
}

} // namespace Velmora::Framework
