#include "quickstartwindow.h"

#include "core/logging_p.h"
#include "dialogs/settingsvalue_p.h"

#include <QtCore/qpointer.h>
#include <QtCore/qsettings.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qcheckbox.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qtabwidget.h>

namespace Velmora::Framework {

class QuickStartWindowPrivate
{
public:
    QPointer<QSettings> settings;
    QTabWidget *tabs = nullptr;
    QCheckBox *showAtStart = nullptr;
};

QuickStartWindow::QuickStartWindow(QWidget *parent)
    : QWidget(parent), d(std::make_unique<QuickStartWindowPrivate>())
{
    setObjectName(QStringLiteral("QuickStartWindow"));
    setWindowTitle(tr("Quick Start"));

    d->tabs = new QTabWidget;
    d->tabs->setDocumentMode(true);
    d->showAtStart = new QCheckBox(tr("Show at start-up"));
    d->showAtStart->setObjectName(QStringLiteral("ShowAtStartUp"));
    auto *close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(d->showAtStart);
    bottom->addStretch(1);
    bottom->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(d->tabs, 1);
    layout->addLayout(bottom);
    resize(720, 480);

    loadSetting();
    // Written at once: the window is often closed by the main window going away.
    connect(d->showAtStart, &QCheckBox::toggled, this, [this](bool checked) {
        Internal::withSettings(d->settings, [&](QSettings &settings) {
            settings.setValue(onStartSettingPath(), checked);
        });
    });
}

QuickStartWindow::~QuickStartWindow() = default;

QString QuickStartWindow::onStartSettingPath()
{
    return QStringLiteral("IDE/ShowQuickStartOnStart");
}

void QuickStartWindow::setSettings(QSettings *settings)
{
    d->settings = settings;
    loadSetting();
}

void QuickStartWindow::loadSetting()
{
    const bool show = Internal::withSettings(d->settings, [](QSettings &settings) {
        return Internal::readBoolSetting(settings, onStartSettingPath(), true,
                                         "QuickStartWindow::loadSetting()");
    });
    const QSignalBlocker blocker(d->showAtStart);
    d->showAtStart->setChecked(show);
}

void QuickStartWindow::showEvent(QShowEvent *event)
{
    loadSetting();
    QWidget::showEvent(event);
}

int QuickStartWindow::addPage(QWidget *page, const QString &title)
{
    if (!page) {
        qCWarning(Internal::lcDialogs, "QuickStartWindow::addPage(): null page");
        return -1;
    }
    if (indexOf(page) >= 0) {
        qCWarning(Internal::lcDialogs, "QuickStartWindow::addPage(): page %s already added",
                  qPrintable(title));
        return -1;
    }
    return d->tabs->addTab(page, title);
}

int QuickStartWindow::indexOf(QWidget *page) const
{
    return page ? d->tabs->indexOf(page) : -1;
}

QWidget *QuickStartWindow::removePage(int index)
{
    QWidget *page = d->tabs->widget(index);
    if (!page)
        return nullptr;
    d->tabs->removeTab(index);
    page->setParent(nullptr);
    return page;
}

QWidget *QuickStartWindow::page(int index) const
{
    return d->tabs->widget(index);
}

int QuickStartWindow::count() const
{
    return d->tabs->count();
}

} // namespace Velmora::Framework
