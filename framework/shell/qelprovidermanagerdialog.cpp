#include "shell/qelprovidermanagerdialog.h"

#include "core/logging_p.h"
#include "shell/provider.h"
#include "shell/providermanager.h"

#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qtablewidget.h>

namespace Velmora::Framework {

namespace {

enum Column { NameColumn, AuthorColumn, VersionColumn, DescriptionColumn, TypeColumn, StateColumn,
              ColumnCount };

// "major.minor", then ".patch" and " (build)" only when they are not 0.
QString versionText(quint32 version)
{
    const quint32 major = version >> 24;
    const quint32 minor = (version >> 16) & 0xff;
    const quint32 patch = (version >> 8) & 0xff;
    const quint32 build = version & 0xff;
    qCDebug(Internal::lcShell, "mxPMD: <%x> <%x/%x>", version, major, minor);
    QString text = QString::number(major) + QLatin1Char('.') + QString::number(minor);
    if (patch != 0)
        text += QLatin1Char('.') + QString::number(patch);
    if (build != 0)
        text += QLatin1String(" (") + QString::number(build) + QLatin1Char(')');
    return text;
}

QString typeText(int type)
{
    switch (type) {
    case 0: return QelProviderManagerDialog::tr("Primary");
    case 1: return QelProviderManagerDialog::tr("Secondary");
    default: return QString::number(type);
    }
}

QString stateText(int state)
{
    switch (state) {
    case 0: return QelProviderManagerDialog::tr("OK");
    case 1: return QelProviderManagerDialog::tr("Disabled");
    default: return QelProviderManagerDialog::tr("Unknown");
    }
}

void fill(QTableWidget *table, ProviderManager *manager)
{
    if (!manager)
        return;
    const QList<ProviderManager::ProviderInfo> infos =
        manager->getPrimaryProviders() + manager->getSecondaryProviders();
    for (const ProviderManager::ProviderInfo &info : infos) {
        const Provider *provider = info.provider;
        if (!provider)
            continue;
        const int row = table->rowCount();
        table->insertRow(row);
        const QString texts[ColumnCount] = {provider->name(), provider->author(),
                                            versionText(provider->version()),
                                            provider->description(),
                                            typeText(provider->type()), stateText(info.state)};
        for (int column = 0; column < ColumnCount; ++column)
            table->setItem(row, column, new QTableWidgetItem(texts[column]));
    }
    // Sorting is switched on only now: with it on, every setItem could move the row being filled.
    table->horizontalHeader()->setSortIndicator(NameColumn, Qt::AscendingOrder);
    table->setSortingEnabled(true);
}

} // namespace

QelProviderManagerDialog::QelProviderManagerDialog(ProviderManager *manager, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("QelProviderManagerDialog"));
    setWindowTitle(tr("Provider Information"));

    auto *vboxLayout = new QVBoxLayout(this);
    vboxLayout->setObjectName(QStringLiteral("vboxLayout"));

    auto *table = new QTableWidget(0, ColumnCount, this);
    table->setObjectName(QStringLiteral("ui_providerInfo"));
    table->setHorizontalHeaderLabels({tr("Provider Name"), tr("Author"), tr("Version"),
                                      tr("Description"), tr("Type"), tr("State")});
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(DescriptionColumn, QHeaderView::Stretch);
    vboxLayout->addWidget(table);

    auto *hboxLayout = new QHBoxLayout;
    hboxLayout->setObjectName(QStringLiteral("hboxLayout"));
    hboxLayout->addStretch();
    auto *closeButton = new QPushButton(tr("Close"), this);
    closeButton->setObjectName(QStringLiteral("ui_closeButton"));
    closeButton->setDefault(true);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    hboxLayout->addWidget(closeButton);
    vboxLayout->addLayout(hboxLayout);

    fill(table, manager);
    resize(720, 320);
}

QelProviderManagerDialog::~QelProviderManagerDialog() = default;

} // namespace Velmora::Framework
